# What each engine's folder says of how the tests reach it, for FreshDatabase and for ctest.

set(VEXNUMKR_TEST_ENGINE_ENTRIES "")
set(VEXNUMKR_TEST_WAY_ENTRIES "")
# Every way to an engine, by the name that VEXNUMKR_TEST_ENGINE gives it.
set(VEXNUMKR_TEST_WAYS "")

# vexnumkr_test_engine(NAME [USER ... ADMINISTRATION ... CREATE ... DROP ...])
# With a server: the user who may do everything, a connection of the administrator's, and how a database
# is made and dropped. Without, a database is a file.
function(vexnumkr_test_engine name)
  cmake_parse_arguments(PARSE_ARGV 1 engine "" "USER;ADMINISTRATION;CREATE;DROP" "")
  string(APPEND VEXNUMKR_TEST_ENGINE_ENTRIES
    "    {\"${name}\", \"${engine_USER}\",\n     R\"(${engine_ADMINISTRATION})\",\n"
    "     R\"(${engine_CREATE})\",\n     R\"(${engine_DROP})\"},\n")
  set(VEXNUMKR_TEST_ENGINE_ENTRIES "${VEXNUMKR_TEST_ENGINE_ENTRIES}" PARENT_SCOPE)
endfunction()

# vexnumkr_test_way(NAME ENGINE CONNECTION)
function(vexnumkr_test_way name engine connection)
  set(VEXNUMKR_TEST_WAYS ${VEXNUMKR_TEST_WAYS} ${name} PARENT_SCOPE)
  string(APPEND VEXNUMKR_TEST_WAY_ENTRIES
    "    {\"${name}\", \"${engine}\",\n     R\"(${connection})\"},\n")
  set(VEXNUMKR_TEST_WAY_ENTRIES "${VEXNUMKR_TEST_WAY_ENTRIES}" PARENT_SCOPE)
endfunction()

foreach(engine IN LISTS VEXNUMKR_ENGINE_NAMES)
  include("${PROJECT_SOURCE_DIR}/src/engines/${engine}/test_databases.cmake")
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/test_engines.h.in"
  "${PROJECT_BINARY_DIR}/tests/generated/support/test_engines.h" @ONLY)
