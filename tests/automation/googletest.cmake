# GoogleTest for Windows, from the sources that Debian's package of it has.
find_path(GOOGLETEST_SOURCE CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH
  NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(BUILD_GMOCK OFF)
set(INSTALL_GTEST OFF)
add_subdirectory("${GOOGLETEST_SOURCE}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
