# The shared library as a host meets it.
vexnumkr_test(component/factory_test GUI LABEL unit LINKS vexnumkr)
target_compile_definitions(factory_test PRIVATE "VEXNUMKR_LIBRARY=\"$<TARGET_FILE:vexnumkr>\"")

# A host that is linked with neither the library nor Qt.
vexnumkr_test(component/run_time_test LABEL unit LINKS vexnumkr_headers)
target_compile_definitions(run_time_test PRIVATE "VEXNUMKR_LIBRARY=\"$<TARGET_FILE:vexnumkr>\"")
add_dependencies(run_time_test vexnumkr)
