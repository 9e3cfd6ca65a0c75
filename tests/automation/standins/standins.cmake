# What a Windows host has and Wine lacks: ADO's classes, over this project's own adapter and ODBC, and
# the host's components.
add_library(vexnumkr_automation_standins SHARED
  "${CMAKE_CURRENT_LIST_DIR}/ado_errors.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/call.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/call_log.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/command_object.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/connection_object.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/dispatch_object.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/environment.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/fields_object.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_objects.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/interception.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/odbc_lengths.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/qt_application.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/recordset_object.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/server.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/standins.def")
target_include_directories(vexnumkr_automation_standins PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_automation_standins PRIVATE
  vexnumkr_automation vexnumkr_qtsql Qt6::QODBCDriverPlugin vexnumkr_options)
# On 32-bit Windows the names of functions end in the size of their arguments.
target_link_options(vexnumkr_automation_standins PRIVATE
  -Wl,--wrap=SQLGetData$<$<EQUAL:${CMAKE_SIZEOF_VOID_P},4>:@24>
  -Wl,--wrap=SQLBindParameter$<$<EQUAL:${CMAKE_SIZEOF_VOID_P},4>:@40>)
set_target_properties(vexnumkr_automation_standins PROPERTIES
  VEXNUMKR_COM ON PREFIX "" OUTPUT_NAME vexnumkr-standins
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
