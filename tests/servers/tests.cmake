# On servers of their own, which are stopped and killed.
vexnumkr_test(servers/lost_server_test LABEL "fault;postgresql" TIMEOUT 300
  SOURCES contract/qt_main.cpp servers/private_server.cpp
  LINKS vexnumkr_core_session)
target_compile_definitions(lost_server_test
  PRIVATE SERVER_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/servers/server.sh")
vexnumkr_engine_environment(environment postgresql)
set_tests_properties(lost_server_test PROPERTIES ENVIRONMENT "${environment}")
foreach(engine mariadb odbc-postgresql)
  vexnumkr_engine_environment(environment ${engine})
  add_test(NAME "lost_server_test@${engine}" COMMAND lost_server_test)
  set_tests_properties("lost_server_test@${engine}" PROPERTIES
    LABELS "fault;${engine}" TIMEOUT 300 ENVIRONMENT "${environment}")
endforeach()
