# The sources are formatted as .clang-format says. Run with -DSOURCE_DIR=... -DCLANG_FORMAT=... -P.
cmake_minimum_required(VERSION 3.25)

if(NOT CLANG_FORMAT)
  message(STATUS "skipped: clang-format 14 is not installed")
  return()
endif()
execute_process(COMMAND "${CLANG_FORMAT}" --version OUTPUT_VARIABLE version)
if(NOT version MATCHES "version 14\\.")
  message(STATUS "skipped: the sources were formatted with clang-format 14, this is ${version}")
  return()
endif()

file(GLOB_RECURSE files "${SOURCE_DIR}/include/*.h" "${SOURCE_DIR}/src/*.h" "${SOURCE_DIR}/src/*.cpp"
  "${SOURCE_DIR}/tests/*.h" "${SOURCE_DIR}/tests/*.cpp" "${SOURCE_DIR}/examples/*.cpp")
execute_process(COMMAND "${CLANG_FORMAT}" --dry-run -Werror ${files}
  RESULT_VARIABLE result ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "Not formatted:\n${output}")
endif()
