# The example of a host that embeds the component, run as its own program.
vexnumkr_test(embed/embed_example_test GUI LABEL gui LINKS vexnumkr_test_app)
target_compile_definitions(embed_example_test PRIVATE
  EMBED_EXAMPLE="$<TARGET_FILE:vexnumkr-embed-example>")
add_dependencies(embed_example_test vexnumkr-embed-example)

# The example of a host without Qt, with what presses buttons loaded into it.
vexnumkr_test(embed/run_time_example_test GUI LABEL gui LINKS vexnumkr_test_app)
target_compile_definitions(run_time_example_test PRIVATE
  RUN_TIME_EXAMPLE="$<TARGET_FILE:vexnumkr-run-time-example>"
  VEXNUMKR_LIBRARY="$<TARGET_FILE:vexnumkr>"
  PLUGIN_FOLDER="${CMAKE_BINARY_DIR}/tests/plugins" PROJECT_VERSION="${PROJECT_VERSION}")
add_dependencies(run_time_example_test vexnumkr-run-time-example vexnumkr vexnumkr_button_presser)

# Hosts that do what hosts must not do.
foreach(name calls exceptions release threads)
  vexnumkr_test(embed/misuse_${name}_test GUI LABEL fault LINKS vexnumkr_test_app)
endforeach()
vexnumkr_test(embed/misuse_application_test LABEL fault LINKS vexnumkr Qt6::Widgets)
vexnumkr_test(embed/misuse_unload_test LABEL fault LINKS vexnumkr_headers)
target_compile_definitions(misuse_unload_test PRIVATE
  "VEXNUMKR_LIBRARY=\"$<TARGET_FILE:vexnumkr>\"")
add_dependencies(misuse_unload_test vexnumkr)
