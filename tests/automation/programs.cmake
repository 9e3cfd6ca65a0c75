# vexnumkr_windows_test(PATH [SOURCES ...] [NEEDS FIXTURE])
# One program and one ctest entry for PATH.cpp, run under Wine beside a database of its own.
function(vexnumkr_windows_test path)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "NEEDS" "SOURCES")
  get_filename_component(name "${path}" NAME)
  add_executable(${name} ${path}.cpp ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE
    vexnumkr_windows_hosts vexnumkr_options GTest::gtest GTest::gtest_main)
  set_target_properties(${name} PROPERTIES
    VEXNUMKR_COM ON RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  add_test(NAME ${name} COMMAND "${wine}/program_test.sh" "${world}" "$<TARGET_FILE:VEXNumKr>"
    "$<TARGET_FILE:${name}>")
  vexnumkr_in_world(${name} ${arg_NEEDS})
  set_property(GLOBAL APPEND PROPERTY VEXNUMKR_TEST_FILES "${CMAKE_CURRENT_SOURCE_DIR}/${path}.cpp")
endfunction()

# vexnumkr_in_world(NAME [FIXTURE])
# The test NAME runs in the world of the test run. There is one keyboard in it.
function(vexnumkr_in_world name)
  set_tests_properties(${name} PROPERTIES
    FIXTURES_REQUIRED "world;${ARGN}" RESOURCE_LOCK keyboard TIMEOUT 180)
endfunction()

# What the hosts written in C++ have in common.
add_library(vexnumkr_windows_hosts STATIC
  hosts/hasty_user.cpp hosts/host_window.cpp hosts/prankster.cpp hosts/session.cpp)
target_include_directories(vexnumkr_windows_hosts PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_windows_hosts
  PUBLIC vexnumkr_automation PRIVATE vexnumkr_options GTest::gtest)
set_target_properties(vexnumkr_windows_hosts PROPERTIES VEXNUMKR_COM ON)

add_executable(vexnumkr_clipboard_text hosts/clipboard_text.cpp)
target_link_libraries(vexnumkr_clipboard_text PRIVATE vexnumkr_automation vexnumkr_options)
set_target_properties(vexnumkr_clipboard_text PROPERTIES
  OUTPUT_NAME clipboard-text RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")

set(server "${PROJECT_SOURCE_DIR}/src/windows")
vexnumkr_windows_test(type_library_test)
vexnumkr_windows_test(library_test NEEDS registered)
target_link_libraries(library_test PRIVATE version)
vexnumkr_windows_test(late_binding_test NEEDS registered)
vexnumkr_windows_test(hosts_test NEEDS registered)
vexnumkr_windows_test(misuse_test NEEDS registered)
# It opens the dialog some 500 times.
set_tests_properties(misuse_test PROPERTIES TIMEOUT 1800)
vexnumkr_windows_test(registration_test
  SOURCES "${server}/registration.cpp" "${server}/registry_key.cpp")

# The adapter alone: ADO's objects by the database contract, values and failures.
vexnumkr_windows_test(adapter/disabled_windows_test SOURCES adapter/apartment.cpp)
vexnumkr_windows_test(adapter/failure_test SOURCES adapter/apartment.cpp)
vexnumkr_windows_test(adapter/variant_test SOURCES adapter/apartment.cpp)
set(contract "${PROJECT_SOURCE_DIR}/tests/contract/database_contract")
vexnumkr_windows_test(adapter/ado_contract_test SOURCES adapter/apartment.cpp "${contract}.cpp"
  "${contract}_executing.cpp" "${contract}_objects.cpp" "${contract}_reading.cpp"
  "${contract}_transactions.cpp" "${contract}_updating.cpp"
  "${PROJECT_SOURCE_DIR}/tests/contract/database_language.cpp")
