# The tests of the stand-alone host.
add_library(vexnumkr_test_app STATIC
  "${CMAKE_CURRENT_LIST_DIR}/expected_windows.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/program.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/sample_database.cpp")
target_include_directories(vexnumkr_test_app PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_test_app
  PUBLIC vexnumkr_host_components Qt6::Sql Qt6::Test Qt6::Widgets GTest::gtest
  PRIVATE vexnumkr_options)

vexnumkr_test(app/command_line_test LABEL unit LINKS vexnumkr_test_app)
vexnumkr_test(app/process_list_test LABEL unit LINKS vexnumkr_test_app)
vexnumkr_test(app/sample_test GUI LABEL unit LINKS vexnumkr_test_app)
# Its own functions take the place of those by which the engine waits.
vexnumkr_test(app/settings_store_test GUI LABEL unit SOURCES support/faults/engine_waits.cpp
  LINKS vexnumkr_test_app)
set_target_properties(settings_store_test PROPERTIES ENABLE_EXPORTS ON)
add_dependencies(settings_store_test hold_write_lock)
vexnumkr_test(app/booking_circles_test GUI LABEL unit LINKS vexnumkr_test_app)
vexnumkr_test(app/booking_circle_window_test GUI LABEL gui LINKS vexnumkr_test_app)
vexnumkr_test(app/host_messages_test GUI LABEL gui LINKS vexnumkr_test_app)
vexnumkr_test(app/host_texts_test GUI LABEL gui LINKS vexnumkr_test_app)
vexnumkr_test(app/host_dialog_test GUI LABEL gui LINKS vexnumkr_test_app)

vexnumkr_test(app/window_icon_test GUI LABEL unit LINKS vexnumkr_test_app)
target_compile_definitions(window_icon_test PRIVATE
  ICON_FOLDER="${PROJECT_SOURCE_DIR}/packaging/desktop")

vexnumkr_test(app/host_program_test GUI LABEL gui LINKS vexnumkr_test_app TIMEOUT 300)
target_compile_definitions(host_program_test PRIVATE
  HOST_PROGRAM="$<TARGET_FILE:vexnumkr-host>" PROJECT_VERSION="${PROJECT_VERSION}")
add_dependencies(host_program_test vexnumkr-host)

vexnumkr_test(app/killed_save_test GUI LABEL fault SOURCES app/saving_host.cpp
  LINKS vexnumkr_test_app TIMEOUT 300)
target_compile_definitions(killed_save_test PRIVATE
  HOST_PROGRAM="$<TARGET_FILE:vexnumkr-host>"
  PLUGIN_FOLDER="${CMAKE_BINARY_DIR}/tests/plugins"
  FILE_OPERATIONS="$<TARGET_FILE:vexnumkr_file_operations>")
add_dependencies(killed_save_test
  vexnumkr-host vexnumkr_button_presser vexnumkr_file_operations)
