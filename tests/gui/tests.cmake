# The tests of what users see: real widgets on the offscreen platform, real mouse and key events.
add_library(vexnumkr_test_gui_main STATIC "${CMAKE_CURRENT_SOURCE_DIR}/support/gui_main.cpp")
target_link_libraries(vexnumkr_test_gui_main
  PUBLIC Qt6::Widgets Qt6::Test GTest::gtest
  PRIVATE vexnumkr_options)

foreach(group grid forms dialog)
  if(EXISTS "${CMAKE_CURRENT_LIST_DIR}/${group}_tests.cmake")
    include("${CMAKE_CURRENT_LIST_DIR}/${group}_tests.cmake")
  endif()
endforeach()
