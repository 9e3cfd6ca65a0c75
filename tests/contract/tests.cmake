add_library(vexnumkr_database_contract OBJECT
  contract/database_contract.cpp
  contract/database_contract_executing.cpp
  contract/database_contract_objects.cpp
  contract/database_contract_reading.cpp
  contract/database_contract_transactions.cpp
  contract/database_contract_updating.cpp
  contract/database_language.cpp)
target_include_directories(vexnumkr_database_contract PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_database_contract
  PUBLIC vexnumkr_platform GTest::gtest PRIVATE vexnumkr_options)

# vexnumkr_sqlite_test(PATH LABEL [SOURCES ...])
# A test of this folder on real SQLite files.
function(vexnumkr_sqlite_test path label)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "SOURCES")
  vexnumkr_test(contract/${path} LABEL ${label}
    QT SOURCES contract/sqlite/sqlite_database.cpp ${arg_SOURCES}
    LINKS vexnumkr_qtsql vexnumkr_database_contract)
endfunction()

vexnumkr_sqlite_test(database_contract_borrowed_test contract)
vexnumkr_sqlite_test(database_contract_scripted_test contract
  SOURCES support/faults/scripted_connection.cpp)

vexnumkr_test(contract/database_contract_engine_test LABEL contract QT
  LINKS vexnumkr_fresh_database vexnumkr_database_contract)
vexnumkr_on_every_engine(database_contract_engine_test)

vexnumkr_test(contract/engine_sessions_test LABEL engine QT
  LINKS vexnumkr_fresh_database vexnumkr_database_contract)
vexnumkr_on_every_engine(engine_sessions_test)

foreach(name server postgresql mariadb)
  vexnumkr_test(contract/${name}_sessions_test LABEL engine QT
    LINKS vexnumkr_fresh_database vexnumkr_database_contract)
endforeach()
vexnumkr_on_engines(server_sessions_test postgresql mariadb odbc-postgresql)
vexnumkr_on_engines(postgresql_sessions_test postgresql)
vexnumkr_on_engines(mariadb_sessions_test mariadb)

add_executable(hold_write_lock contract/sqlite/hold_write_lock.cpp)
target_link_libraries(hold_write_lock PRIVATE vexnumkr_options Qt6::Sql)
set_target_properties(hold_write_lock PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")

vexnumkr_sqlite_test(sqlite/sqlite_one_statement_test engine)
vexnumkr_sqlite_test(sqlite/sqlite_opening_test engine)
vexnumkr_sqlite_test(sqlite/sqlite_statements_test engine)
vexnumkr_sqlite_test(sqlite/sqlite_update_test engine)
vexnumkr_sqlite_test(sqlite/sqlite_transactions_test engine SOURCES support/faults/engine_waits.cpp)
set_target_properties(sqlite_transactions_test PROPERTIES ENABLE_EXPORTS ON)
vexnumkr_sqlite_test(sqlite/sqlite_locking_test engine)
vexnumkr_sqlite_test(sqlite/sqlite_waiting_test engine)
add_dependencies(sqlite_locking_test hold_write_lock)
add_dependencies(sqlite_waiting_test hold_write_lock)

foreach(name eight_bit_text field_value packed_fields opening_without_application simple_select)
  vexnumkr_test(contract/${name}_test LABEL unit
    SOURCES contract/database_language.cpp LINKS vexnumkr_qtsql)
endforeach()

vexnumkr_test(contract/ado_statement_check_test LABEL unit
  SOURCES contract/database_language.cpp LINKS vexnumkr_statement_check)
