# Script hosts, whose users work at the keyboard: one ctest entry for each NAME_test.sh.

# vexnumkr_script_test(NAME [FIXTURE...])
function(vexnumkr_script_test name)
  set(script "${CMAKE_CURRENT_SOURCE_DIR}/scripts/${name}.sh")
  add_test(NAME ${name} COMMAND "${script}" "${world}")
  vexnumkr_in_world(${name} ${ARGN})
  set_property(GLOBAL APPEND PROPERTY VEXNUMKR_TEST_FILES "${script}")
endfunction()

# The library file is registered for all tests that need it, and leaves nothing behind afterwards.
set(registering "${CMAKE_CURRENT_SOURCE_DIR}/scripts/registering_test.sh")
set_property(GLOBAL APPEND PROPERTY VEXNUMKR_TEST_FILES "${registering}")
foreach(step register unregister)
  add_test(NAME ${step} COMMAND "${registering}" "${world}" ${step} "$<TARGET_FILE:VEXNumKr>")
  vexnumkr_in_world(${step})
endforeach()
set_tests_properties(register PROPERTIES FIXTURES_SETUP registered)
set_tests_properties(unregister PROPERTIES FIXTURES_CLEANUP registered)

vexnumkr_script_test(ado_test)
vexnumkr_script_test(saving_test registered)
vexnumkr_script_test(drawing_test registered)
vexnumkr_script_test(cancelling_test registered)
vexnumkr_script_test(processing_date_test registered)
vexnumkr_script_test(failures_test registered)
vexnumkr_script_test(host_components_test registered)
vexnumkr_script_test(column_types_test registered)
vexnumkr_script_test(selftest_test registered)
