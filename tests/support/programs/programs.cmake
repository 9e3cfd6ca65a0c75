# What tests put into programs that they run, without building anything into them.

# Presses buttons; see button_presser.cpp.
add_library(vexnumkr_button_presser MODULE
  support/programs/button_presser.cpp scenario/windows/idle_pump.cpp)
target_include_directories(vexnumkr_button_presser PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_button_presser PRIVATE Qt6::Widgets Qt6::Test vexnumkr_options)
target_compile_definitions(vexnumkr_button_presser
  PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
set_target_properties(vexnumkr_button_presser PROPERTIES
  AUTOMOC ON LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests/plugins/generic")

# Follows file operations and kills at one of them; see file_operations.cpp. It is loaded before the
# sanitizers' own library, and so is built without them.
add_library(vexnumkr_file_operations MODULE support/programs/file_operations.cpp)
target_compile_features(vexnumkr_file_operations PRIVATE cxx_std_20)
target_compile_options(vexnumkr_file_operations PRIVATE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${VEXNUMKR_WERROR}>:-Werror>)
target_link_libraries(vexnumkr_file_operations PRIVATE ${CMAKE_DL_LIBS})
