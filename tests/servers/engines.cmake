# The database servers of a test run, and tests that run on every engine.

set(fixture "${CMAKE_CURRENT_SOURCE_DIR}/servers/fixture.sh")
set(VEXNUMKR_SERVERS_FILE "${CMAKE_BINARY_DIR}/tests/servers")
add_test(NAME servers_start COMMAND "${fixture}" start "${VEXNUMKR_SERVERS_FILE}")
add_test(NAME servers_stop COMMAND "${fixture}" stop "${VEXNUMKR_SERVERS_FILE}")
set_tests_properties(servers_start PROPERTIES FIXTURES_SETUP servers TIMEOUT 180)
set_tests_properties(servers_stop PROPERTIES FIXTURES_CLEANUP servers TIMEOUT 180)

# Where tests run besides SQLite: on the other engines, and on what is reached by ODBC.
include(support/test_engines.cmake)
set(VEXNUMKR_ENGINES ${VEXNUMKR_TEST_WAYS})
list(REMOVE_ITEM VEXNUMKR_ENGINES sqlite)

# vexnumkr_engine_environment(VARIABLE ENGINE)
# The environment of a test on that engine.
function(vexnumkr_engine_environment variable engine)
  set(${variable} "${VEXNUMKR_TEST_ENVIRONMENT}" "VEXNUMKR_TEST_ENGINE=${engine}"
    "VEXNUMKR_TEST_SERVERS=${VEXNUMKR_SERVERS_FILE}" PARENT_SCOPE)
endfunction()

# vexnumkr_add_engine_test(NAME ENGINE COMMAND...)
# Runs a command as the test NAME@ENGINE, with the properties of the test NAME, which runs on SQLite.
function(vexnumkr_add_engine_test name engine)
  add_test(NAME "${name}@${engine}" COMMAND ${ARGN})
  get_test_property(${name} LABELS labels)
  get_test_property(${name} TIMEOUT timeout)
  list(REMOVE_ITEM labels sqlite)
  vexnumkr_engine_environment(environment ${engine})
  set_tests_properties("${name}@${engine}" PROPERTIES
    LABELS "${labels};${engine}" TIMEOUT ${timeout} ENVIRONMENT "${environment}"
    FIXTURES_REQUIRED servers)
endfunction()

# vexnumkr_on_every_engine(NAME...)
# Runs tests whose databases are FreshDatabases, and which ran on SQLite so far, on the others too.
function(vexnumkr_on_every_engine)
  foreach(name IN LISTS ARGN)
    set_property(TEST ${name} APPEND PROPERTY LABELS sqlite)
    foreach(engine IN LISTS VEXNUMKR_ENGINES)
      vexnumkr_add_engine_test(${name} ${engine} ${name})
    endforeach()
  endforeach()
endfunction()

# vexnumkr_on_engines(NAME ENGINE...)
# Runs a test on the first engine, and as NAME@ENGINE on the others.
function(vexnumkr_on_engines name first)
  set_property(TEST ${name} APPEND PROPERTY LABELS sqlite)
  foreach(engine IN LISTS ARGN)
    vexnumkr_add_engine_test(${name} ${engine} ${name})
  endforeach()
  get_test_property(${name} LABELS labels)
  list(REMOVE_ITEM labels sqlite)
  vexnumkr_engine_environment(environment ${first})
  set_tests_properties(${name} PROPERTIES LABELS "${labels};${first}"
    ENVIRONMENT "${environment}" FIXTURES_REQUIRED servers)
endfunction()

# What a FreshDatabase needs.
add_library(vexnumkr_fresh_database STATIC support/fresh_database.cpp)
target_include_directories(vexnumkr_fresh_database PUBLIC "${PROJECT_SOURCE_DIR}/tests"
  "${CMAKE_CURRENT_BINARY_DIR}/generated")
target_link_libraries(vexnumkr_fresh_database PUBLIC vexnumkr_qtsql PRIVATE vexnumkr_options)
