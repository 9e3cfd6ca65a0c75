# The real dialogs on a real database.
add_library(vexnumkr_dialog_session STATIC
  support/dialog_session.cpp support/faults/faulty_forms.cpp support/modal_user.cpp)
target_link_libraries(vexnumkr_dialog_session
  PUBLIC vexnumkr_scenario_driver vexnumkr_fresh_database GTest::gtest
  PRIVATE vexnumkr_options Qt6::Test)

foreach(name broken_host circles circles_refresh closing controls editor_walk ending entries escape failures
    filters interruptions loading notes options progress refusals special_ranges tables ticks tree validation)
  vexnumkr_test(gui/dialog/dialog_${name}_test GUI LABEL gui LINKS vexnumkr_dialog_session)
endforeach()

vexnumkr_on_every_engine(
  dialog_circles_test dialog_closing_test dialog_loading_test dialog_special_ranges_test
  dialog_tables_test)

# Its own functions take the place of those by which the engine waits.
vexnumkr_test(gui/dialog/dialog_two_hosts_test GUI LABEL engine
  SOURCES app/program.cpp support/faults/engine_waits.cpp LINKS vexnumkr_dialog_session)
set_target_properties(dialog_two_hosts_test PROPERTIES ENABLE_EXPORTS ON)
target_compile_definitions(dialog_two_hosts_test PRIVATE
  HOST_PROGRAM="$<TARGET_FILE:vexnumkr-host>" PLUGIN_FOLDER="${CMAKE_BINARY_DIR}/tests/plugins")
add_dependencies(dialog_two_hosts_test hold_write_lock vexnumkr-host vexnumkr_button_presser)

vexnumkr_test(gui/dialog/dialog_keyboard_test GUI LABEL gui
  LINKS vexnumkr_dialog_session vexnumkr_test_screen_reader)
vexnumkr_test(gui/dialog/dialog_look_test GUI LABEL gui SCALES 1.25 1.5 2 LINKS vexnumkr_dialog_session)

# Hosts that draw numbers meanwhile.
vexnumkr_test(gui/dialog/dialog_drawing_hosts_test GUI LABEL gui TIMEOUT 300
  LINKS vexnumkr_dialog_session)
target_compile_definitions(dialog_drawing_hosts_test PRIVATE
  DRAWING_PROGRAM="$<TARGET_FILE:drawing_program>")
add_dependencies(dialog_drawing_hosts_test drawing_program)
vexnumkr_on_every_engine(dialog_drawing_hosts_test)
