# What holds for the sources as such.

add_test(NAME include_directions
  COMMAND "${CMAKE_COMMAND}" "-DSOURCE_DIR=${PROJECT_SOURCE_DIR}"
          -P "${CMAKE_CURRENT_LIST_DIR}/check_includes.cmake")
add_test(NAME include_circles
  COMMAND "${CMAKE_COMMAND}" "-DSOURCE_DIR=${PROJECT_SOURCE_DIR}"
          -P "${CMAKE_CURRENT_LIST_DIR}/check_circles.cmake")
set_tests_properties(include_directions include_circles PROPERTIES LABELS unit)

# Other versions of the formatter break lines elsewhere, so only the one that the sources were
# formatted with can tell.
find_program(CLANG_FORMAT NAMES clang-format-14 clang-format)
add_test(NAME source_format
  COMMAND "${CMAKE_COMMAND}" "-DSOURCE_DIR=${PROJECT_SOURCE_DIR}" "-DCLANG_FORMAT=${CLANG_FORMAT}"
          -P "${CMAKE_CURRENT_LIST_DIR}/check_format.cmake")
set_tests_properties(source_format PROPERTIES LABELS unit SKIP_REGULAR_EXPRESSION "skipped:")

# Every public header compiles alone.
file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/vexnumkr/*.h"
  "${PROJECT_BINARY_DIR}/include/vexnumkr/*.h")
set(sources "")
foreach(header IN LISTS headers)
  get_filename_component(name "${header}" NAME_WE)
  set(source "${CMAKE_BINARY_DIR}/public_headers/${name}.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "#include <vexnumkr/${name}.h>\n")
  list(APPEND sources "${source}")
endforeach()
add_library(vexnumkr_public_headers OBJECT ${sources})
target_include_directories(vexnumkr_public_headers PRIVATE
  "${PROJECT_SOURCE_DIR}/include" "${PROJECT_BINARY_DIR}/include")
target_link_libraries(vexnumkr_public_headers PRIVATE vexnumkr_options)

# Data and rules at work with nothing but the standard library beside them.
vexnumkr_test(architecture/without_window_test LABEL unit LINKS vexnumkr_rules)
