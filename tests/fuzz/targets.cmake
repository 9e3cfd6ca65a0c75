# What is attacked, the same in both builds.

set(fuzz "${CMAKE_CURRENT_LIST_DIR}")

# vexnumkr_fuzz_target(NAME [SOURCES ...] LINKS ...)
# The target in targets/NAME.cpp.
function(vexnumkr_fuzz_target name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  vexnumkr_fuzz_program(${name} "${fuzz}/targets/${name}.cpp;${arg_SOURCES}" "${arg_LINKS}")
endfunction()

find_package(SQLite3 REQUIRED)
add_library(vexnumkr_fuzz_sqlite STATIC
  "${fuzz}/support/bound_statement.cpp" "${fuzz}/support/own_statements.cpp"
  "${fuzz}/support/sqlite_model.cpp")
target_include_directories(vexnumkr_fuzz_sqlite PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_fuzz_sqlite
  PUBLIC vexnumkr_engines vexnumkr_statements vexnumkr_schema SQLite::SQLite3 PRIVATE vexnumkr_options)

vexnumkr_fuzz_target(numbers LINKS vexnumkr_platform)
vexnumkr_fuzz_target(masks LINKS vexnumkr_numbers)
vexnumkr_fuzz_target(statement_gate LINKS vexnumkr_fuzz_sqlite)
vexnumkr_fuzz_target(statement_check LINKS vexnumkr_fuzz_sqlite)
vexnumkr_fuzz_target(number_statements LINKS vexnumkr_fuzz_sqlite vexnumkr_numbers)
vexnumkr_fuzz_target(connection_strings LINKS vexnumkr_platform)
vexnumkr_fuzz_target(connection_files
  SOURCES "${PROJECT_SOURCE_DIR}/src/app/connection_file.cpp" LINKS Qt6::Core)
vexnumkr_fuzz_target(scenario_texts
  SOURCES "${PROJECT_SOURCE_DIR}/tests/scenario/language/chord.cpp"
    "${PROJECT_SOURCE_DIR}/tests/scenario/language/command_forms.cpp"
    "${PROJECT_SOURCE_DIR}/tests/scenario/language/script.cpp"
    "${PROJECT_SOURCE_DIR}/tests/scenario/language/words.cpp"
  LINKS vexnumkr_platform Qt6::Core)
find_package(nlohmann_json REQUIRED)
vexnumkr_fuzz_target(import_files
  SOURCES "${PROJECT_SOURCE_DIR}/src/cli/transfer/company_json.cpp"
  LINKS vexnumkr_numbers nlohmann_json::nlohmann_json)
vexnumkr_fuzz_target(csv_files
  SOURCES "${PROJECT_SOURCE_DIR}/src/cli/transfer/csv_rows.cpp" LINKS Qt6::Core)
vexnumkr_fuzz_target(gap_files SOURCES "${PROJECT_SOURCE_DIR}/src/cli/numbers_file.cpp")
vexnumkr_fuzz_target(settings
  SOURCES "${PROJECT_SOURCE_DIR}/src/app/components/settings_store.cpp"
    "${PROJECT_SOURCE_DIR}/src/app/files.cpp" "${PROJECT_SOURCE_DIR}/src/app/sql.cpp"
  LINKS vexnumkr_fuzz_sqlite vexnumkr_qtsql Qt6::Core)
# On the servers of the tests, which the caller starts.
vexnumkr_fuzz_target(statement_servers
  SOURCES "${PROJECT_SOURCE_DIR}/src/app/sql.cpp"
  LINKS vexnumkr_fuzz_sqlite vexnumkr_fresh_database)
