# The number library on real databases.
add_library(vexnumkr_numbers_database STATIC
  numbers/numbers_database.cpp "${PROJECT_SOURCE_DIR}/src/app/sql.cpp")
target_include_directories(vexnumkr_numbers_database PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_numbers_database
  PUBLIC vexnumkr_numbers vexnumkr_schema vexnumkr_fresh_database Qt6::Core GTest::gtest
  PRIVATE vexnumkr_options)

# vexnumkr_numbers_test(NAME LABEL [TIMEOUT SECONDS] [SOURCES ...] [LINKS ...])
# A test on a NumbersDatabase, on every engine.
function(vexnumkr_numbers_test name label)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "TIMEOUT" "SOURCES;LINKS")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  vexnumkr_test(numbers/${name} LABEL ${label} TIMEOUT ${arg_TIMEOUT}
    QT SOURCES ${arg_SOURCES} LINKS vexnumkr_numbers_database ${arg_LINKS})
  vexnumkr_on_every_engine(${name})
endfunction()

vexnumkr_test(numbers/masks_test LABEL unit LINKS vexnumkr_numbers)
vexnumkr_numbers_test(company_test unit)
vexnumkr_numbers_test(draw_test unit)

add_executable(drawing_program numbers/drawing_program.cpp)
target_link_libraries(drawing_program
  PRIVATE vexnumkr_numbers vexnumkr_qtsql Qt6::Core vexnumkr_options)
set_target_properties(drawing_program PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
vexnumkr_numbers_test(draw_processes_test fault TIMEOUT 900)
target_compile_definitions(draw_processes_test
  PRIVATE DRAWING_PROGRAM="$<TARGET_FILE:drawing_program>")
add_dependencies(draw_processes_test drawing_program)
vexnumkr_test(numbers/drawing_hosts_test LABEL fault TIMEOUT 300
  QT LINKS vexnumkr_core_session)
target_compile_definitions(drawing_hosts_test
  PRIVATE DRAWING_PROGRAM="$<TARGET_FILE:drawing_program>")
add_dependencies(drawing_hosts_test drawing_program)
vexnumkr_on_every_engine(drawing_hosts_test)
vexnumkr_test(numbers/gaps_test LABEL unit LINKS vexnumkr_numbers)
vexnumkr_test(numbers/check_test LABEL unit LINKS vexnumkr_numbers)
vexnumkr_test(numbers/rollover_test LABEL unit
  QT LINKS vexnumkr_numbers vexnumkr_core_session)
vexnumkr_on_every_engine(rollover_test)
vexnumkr_numbers_test(transfer_test unit)
vexnumkr_numbers_test(doctor_test unit)

set(schema "${PROJECT_SOURCE_DIR}/src/app/schema")
vexnumkr_numbers_test(journal_test unit)
target_compile_definitions(journal_test PRIVATE SCHEMA_FOLDER="${schema}")
vexnumkr_test(numbers/journal_saving_test LABEL engine
  QT LINKS vexnumkr_numbers vexnumkr_core_session)
target_compile_definitions(journal_saving_test PRIVATE SCHEMA_FOLDER="${schema}")
vexnumkr_on_every_engine(journal_saving_test)
