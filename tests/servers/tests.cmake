# vexnumkr_server_test(PATH KIND TIMEOUT ENGINES ... [FIXTURE])
# A test that needs a server: on PostgreSQL, and on the other ENGINES as NAME@ENGINE. With FIXTURE it
# uses the servers of the test run, without it starts its own.
function(vexnumkr_server_test path kind timeout)
  cmake_parse_arguments(PARSE_ARGV 3 arg "FIXTURE" "" "ENGINES;SOURCES")
  get_filename_component(name "${path}" NAME)
  vexnumkr_test(${path} LABEL "${kind};postgresql" TIMEOUT ${timeout}
    QT SOURCES ${arg_SOURCES} LINKS vexnumkr_core_session)
  target_compile_definitions(${name} PRIVATE
    FIXTURE_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/fixture.sh"
    SERVER_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/server.sh")
  set(tests ${name})
  vexnumkr_engine_environment(environment postgresql)
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}")
  foreach(engine IN LISTS arg_ENGINES)
    vexnumkr_engine_environment(environment ${engine})
    add_test(NAME "${name}@${engine}" COMMAND ${name})
    set_tests_properties("${name}@${engine}" PROPERTIES
      LABELS "${kind};${engine}" TIMEOUT ${timeout} ENVIRONMENT "${environment}")
    list(APPEND tests "${name}@${engine}")
  endforeach()
  if(arg_FIXTURE)
    set_tests_properties(${tests} PROPERTIES FIXTURES_REQUIRED servers)
  endif()
endfunction()

vexnumkr_server_test(servers/lost_server_test fault 300
  ENGINES mariadb odbc-postgresql SOURCES servers/private_server.cpp)
vexnumkr_server_test(servers/private_server_test fault 120
  ENGINES mariadb SOURCES servers/private_server.cpp)

# Hosts killed at random moments; tools/soak.sh --kills N for many of them.
add_executable(saving_program servers/saving_program.cpp)
target_include_directories(saving_program PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(saving_program
  PRIVATE vexnumkr_hosting vexnumkr_qtsql Qt6::Core vexnumkr_options)
set_target_properties(saving_program PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
vexnumkr_server_test(servers/random_kills_test fault 900
  ENGINES mariadb sqlite SOURCES servers/private_server.cpp)
target_compile_definitions(random_kills_test PRIVATE
  SAVING_PROGRAM="$<TARGET_FILE:saving_program>")
add_dependencies(random_kills_test saving_program)

vexnumkr_server_test(servers/rights_test engine 120 FIXTURE
  ENGINES mariadb odbc-postgresql SOURCES contract/database_language.cpp)
target_link_libraries(rights_test PRIVATE vexnumkr_numbers)
target_compile_definitions(rights_test
  PRIVATE SCHEMA_FOLDER="${PROJECT_SOURCE_DIR}/src/app/schema")

vexnumkr_test(servers/sample_engine_test LABEL engine TIMEOUT 300
  QT SOURCES contract/database_language.cpp
  LINKS vexnumkr_fresh_database)
target_compile_definitions(sample_engine_test PRIVATE HOST_PROGRAM="$<TARGET_FILE:vexnumkr-host>")
add_dependencies(sample_engine_test vexnumkr-host)
vexnumkr_on_every_engine(sample_engine_test)
