add_library(vexnumkr_test_forms STATIC "${CMAKE_CURRENT_LIST_DIR}/forms_fixture.cpp")
target_include_directories(vexnumkr_test_forms PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
target_link_libraries(vexnumkr_test_forms
  PUBLIC vexnumkr_qtforms vexnumkr_qtgrid Qt6::Test GTest::gtest
  PRIVATE vexnumkr_options)

foreach(name check_list combo controls form keys memory message_box pending_edits progress)
  vexnumkr_test(gui/forms/forms_${name}_test GUI LABEL gui LINKS vexnumkr_test_forms)
endforeach()
