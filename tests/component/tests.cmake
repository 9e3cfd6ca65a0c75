# The shared library as a host meets it.
vexnumkr_test(component/factory_test GUI LABEL unit LINKS vexnumkr)
target_compile_definitions(factory_test PRIVATE "VEXNUMKR_LIBRARY=\"$<TARGET_FILE:vexnumkr>\"")
