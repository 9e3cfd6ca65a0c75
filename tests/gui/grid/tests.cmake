add_library(vexnumkr_test_grid STATIC "${CMAKE_CURRENT_LIST_DIR}/grid_fixture.cpp")
target_include_directories(vexnumkr_test_grid PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_test_grid
  PUBLIC vexnumkr_qtgrid Qt6::Test GTest::gtest
  PRIVATE vexnumkr_options)

foreach(name items model mouse keys edit edit_handlers paste rebuild row_copy columns look
    contrast menus notes search tool_tip)
  vexnumkr_test(gui/grid/grid_${name}_test GUI LABEL gui LINKS vexnumkr_test_grid)
endforeach()
foreach(name accessibility accessible_events)
  vexnumkr_test(gui/grid/grid_${name}_test GUI LABEL gui
    LINKS vexnumkr_test_grid vexnumkr_test_screen_reader)
endforeach()
vexnumkr_test(gui/grid/grid_scales_test GUI LABEL gui SCALES 1.25 1.5 2 LINKS vexnumkr_test_grid)
