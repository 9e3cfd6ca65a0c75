# The program for the command line.
add_library(vexnumkr_program_database STATIC
  cli/program_database.cpp app/program.cpp app/terminal.cpp)
target_link_libraries(vexnumkr_program_database
  PUBLIC vexnumkr_numbers_database PRIVATE vexnumkr_options)
target_compile_definitions(vexnumkr_program_database
  PRIVATE VEXNUMKR_PROGRAM="$<TARGET_FILE:vexnumkr-program>")
add_dependencies(vexnumkr_program_database vexnumkr-program)

# vexnumkr_program_test(NAME LABEL): a test on a ProgramDatabase, on every engine.
function(vexnumkr_program_test name label)
  vexnumkr_test(cli/${name} LABEL ${label}
    QT LINKS vexnumkr_program_database)
  vexnumkr_on_every_engine(${name})
endfunction()

vexnumkr_test(cli/program_calls_test LABEL unit
  QT LINKS vexnumkr_program_database)
target_compile_definitions(program_calls_test PRIVATE
  VEXNUMKR_PROGRAM="$<TARGET_FILE:vexnumkr-program>" PROJECT_DIR="${PROJECT_SOURCE_DIR}")
vexnumkr_test(cli/terminal_test LABEL unit
  QT LINKS vexnumkr_program_database)
target_compile_definitions(terminal_test PRIVATE
  VEXNUMKR_PROGRAM="$<TARGET_FILE:vexnumkr-program>")
vexnumkr_program_test(draw_command_test unit)
vexnumkr_program_test(schema_command_test unit)
vexnumkr_program_test(gaps_command_test unit)
vexnumkr_program_test(check_command_test unit)
vexnumkr_program_test(transfer_command_test unit)
vexnumkr_program_test(report_command_test unit)
vexnumkr_program_test(journal_command_test unit)
vexnumkr_program_test(json_manual_test unit)
target_compile_definitions(json_manual_test PRIVATE PROJECT_DIR="${PROJECT_SOURCE_DIR}")
