# The tests of what users see: real widgets on the offscreen platform, real mouse and key events.
add_library(vexnumkr_test_gui_main STATIC "${CMAKE_CURRENT_SOURCE_DIR}/support/main/gui_main.cpp")
target_link_libraries(vexnumkr_test_gui_main
  PUBLIC Qt6::Widgets Qt6::Test GTest::gtest
  PRIVATE vexnumkr_options)

# What the application tells screen readers, which only the platform can switch on.
add_library(vexnumkr_test_screen_reader STATIC
  "${CMAKE_CURRENT_SOURCE_DIR}/support/screen_reader.cpp")
target_include_directories(vexnumkr_test_screen_reader PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
target_link_libraries(vexnumkr_test_screen_reader
  PUBLIC Qt6::Gui
  PRIVATE vexnumkr_options Qt6::GuiPrivate)

foreach(group qt grid forms dialog)
  include("${CMAKE_CURRENT_LIST_DIR}/${group}/tests.cmake")
endforeach()
