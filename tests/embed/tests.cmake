# The example of a host that embeds the component, run as its own program.
vexnumkr_test(embed/embed_example_test GUI LABEL gui LINKS vexnumkr_test_app)
target_compile_definitions(embed_example_test PRIVATE
  EMBED_EXAMPLE="$<TARGET_FILE:vexnumkr-embed-example>")
add_dependencies(embed_example_test vexnumkr-embed-example)
