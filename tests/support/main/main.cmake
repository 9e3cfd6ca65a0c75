# The main programs of tests on Qt, and the headers that nearly every test reads, compiled once: they
# are most of what a test takes to compile.

# They serve only who has the same flags: those of a program, and of one on Qt.
function(vexnumkr_precompiled_headers name)
  add_executable(${name} "${CMAKE_CURRENT_SOURCE_DIR}/support/main/headers.cpp")
  target_link_libraries(${name} PRIVATE vexnumkr_options GTest::gtest ${ARGN})
  target_compile_options(${name} PRIVATE $<$<CONFIG:Debug>:-O0> -fPIC)
endfunction()

vexnumkr_precompiled_headers(vexnumkr_test_headers)
target_precompile_headers(vexnumkr_test_headers PRIVATE
  <gtest/gtest.h> <algorithm> <functional> <map> <memory> <optional> <ranges> <string> <vector>)
vexnumkr_precompiled_headers(vexnumkr_gui_test_headers Qt6::Widgets Qt6::Test)
target_precompile_headers(vexnumkr_gui_test_headers PRIVATE
  <gtest/gtest.h> <algorithm> <functional> <map> <memory> <optional> <ranges> <string> <vector>
  <QTest> <QtWidgets>)

add_library(vexnumkr_test_qt_main STATIC "${CMAKE_CURRENT_SOURCE_DIR}/support/main/qt_main.cpp")
target_link_libraries(vexnumkr_test_qt_main
  PUBLIC Qt6::Core GTest::gtest
  PRIVATE vexnumkr_options)
