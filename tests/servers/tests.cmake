# On servers of their own, which are stopped and killed.
vexnumkr_test(servers/lost_server_test LABEL "fault;postgresql" TIMEOUT 300
  SOURCES contract/qt_main.cpp servers/private_server.cpp
  LINKS vexnumkr_core_session)
target_compile_definitions(lost_server_test PRIVATE
  FIXTURE_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/fixture.sh"
  SERVER_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/server.sh")
vexnumkr_engine_environment(environment postgresql)
set_tests_properties(lost_server_test PROPERTIES ENVIRONMENT "${environment}")
foreach(engine mariadb odbc-postgresql)
  vexnumkr_engine_environment(environment ${engine})
  add_test(NAME "lost_server_test@${engine}" COMMAND lost_server_test)
  set_tests_properties("lost_server_test@${engine}" PROPERTIES
    LABELS "fault;${engine}" TIMEOUT 300 ENVIRONMENT "${environment}")
endforeach()

vexnumkr_test(servers/private_server_test LABEL "fault;postgresql" TIMEOUT 120
  SOURCES contract/qt_main.cpp servers/private_server.cpp
  LINKS vexnumkr_core_session)
target_compile_definitions(private_server_test PRIVATE
  FIXTURE_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/fixture.sh"
  SERVER_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/server.sh")
vexnumkr_engine_environment(environment postgresql)
set_tests_properties(private_server_test PROPERTIES ENVIRONMENT "${environment}")
vexnumkr_engine_environment(environment mariadb)
add_test(NAME "private_server_test@mariadb" COMMAND private_server_test)
set_tests_properties("private_server_test@mariadb" PROPERTIES
  LABELS "fault;mariadb" TIMEOUT 120 ENVIRONMENT "${environment}")

vexnumkr_test(servers/rights_test LABEL "engine;postgresql"
  SOURCES contract/qt_main.cpp contract/database_language.cpp
  LINKS vexnumkr_core_session)
target_compile_definitions(rights_test
  PRIVATE SCHEMA_FOLDER="${PROJECT_SOURCE_DIR}/src/app/schema")
vexnumkr_engine_environment(environment postgresql)
set_tests_properties(rights_test PROPERTIES
  ENVIRONMENT "${environment}" FIXTURES_REQUIRED servers)
foreach(engine mariadb odbc-postgresql)
  vexnumkr_engine_environment(environment ${engine})
  add_test(NAME "rights_test@${engine}" COMMAND rights_test)
  set_tests_properties("rights_test@${engine}" PROPERTIES LABELS "engine;${engine}" TIMEOUT 120
    ENVIRONMENT "${environment}" FIXTURES_REQUIRED servers)
endforeach()

vexnumkr_test(servers/sample_engine_test LABEL engine TIMEOUT 300
  SOURCES contract/qt_main.cpp contract/database_language.cpp
  LINKS vexnumkr_fresh_database)
target_compile_definitions(sample_engine_test PRIVATE HOST_PROGRAM="$<TARGET_FILE:vexnumkr-host>")
add_dependencies(sample_engine_test vexnumkr-host)
vexnumkr_on_every_engine(sample_engine_test)
