# What holds for hours; tools/soak.sh runs it for as long as wanted.
vexnumkr_test(soak/soak_test GUI LABEL "fault;sqlite" TIMEOUT 600
  SOURCES soak/random_user.cpp soak/soak_world.cpp support/faults/failing_disk.cpp
    servers/private_server.cpp
  LINKS vexnumkr_component vexnumkr_numbers vexnumkr_fresh_database vexnumkr_core_session)
set_target_properties(soak_test PROPERTIES ENABLE_EXPORTS ON)
target_compile_definitions(soak_test PRIVATE
  FIXTURE_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/fixture.sh"
  SERVER_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/server.sh")
# Each starts a server of its own, which it kills.
foreach(engine postgresql mariadb)
  vexnumkr_engine_environment(environment ${engine})
  add_test(NAME soak_test@${engine} COMMAND soak_test)
  set_tests_properties(soak_test@${engine} PROPERTIES
    LABELS "fault;${engine}" TIMEOUT 600 ENVIRONMENT "${environment}")
endforeach()

vexnumkr_test(soak/openings_test GUI LABEL fault TIMEOUT 600 LINKS vexnumkr_test_app)

add_test(NAME soak_script_test
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/soak/soak_script_test.sh" "${PROJECT_SOURCE_DIR}")
set_tests_properties(soak_script_test PROPERTIES LABELS fault)
