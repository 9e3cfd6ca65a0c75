# A session of the core on a real database, for this folder and those of hosting and rules.
add_library(vexnumkr_core_session STATIC
  support/core_session.cpp "${PROJECT_SOURCE_DIR}/src/app/sql.cpp")
target_include_directories(vexnumkr_core_session PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(vexnumkr_core_session
  PUBLIC vexnumkr_hosting vexnumkr_schema vexnumkr_fresh_database vexnumkr_scripted_connection
    Qt6::Core GTest::gtest
  PRIVATE vexnumkr_options)

# vexnumkr_core_test(FOLDER/NAME LABEL): a test on a CoreSession.
function(vexnumkr_core_test path label)
  vexnumkr_test(${path} LABEL ${label} QT LINKS vexnumkr_core_session)
endfunction()

vexnumkr_test(data/live_rows_test LABEL unit LINKS vexnumkr_table)
vexnumkr_test(data/xarray_test LABEL unit LINKS vexnumkr_table)
vexnumkr_test(data/xarray_random_test LABEL unit LINKS vexnumkr_table)
vexnumkr_test(data/statements_test LABEL unit LINKS vexnumkr_statements)
vexnumkr_test(data/statement_shapes_test LABEL unit LINKS vexnumkr_statements)
vexnumkr_test(data/loose_text_test LABEL unit LINKS vexnumkr_table)
vexnumkr_core_test(data/injection_test fault)
vexnumkr_core_test(data/range_table_test unit)
vexnumkr_core_test(data/circle_list_test unit)
vexnumkr_core_test(data/loading_test unit)
vexnumkr_core_test(data/special_ranges_test unit)

# The table's sources once more, without the sanitizers of the build.
file(GLOB table_sources CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/src/data/table/*.cpp" "${PROJECT_SOURCE_DIR}/src/platform/*.cpp")
add_executable(table_memory_test data/table_memory_test.cpp ${table_sources})
target_include_directories(table_memory_test
  PRIVATE "${PROJECT_SOURCE_DIR}/include" "${PROJECT_SOURCE_DIR}/src" "${CMAKE_CURRENT_SOURCE_DIR}")
target_compile_features(table_memory_test PRIVATE cxx_std_20)
target_link_libraries(table_memory_test PRIVATE GTest::gtest_main)
set_target_properties(table_memory_test PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
add_test(NAME table_memory_test COMMAND table_memory_test)
set_tests_properties(table_memory_test PROPERTIES LABELS unit TIMEOUT 120)
set_property(GLOBAL APPEND PROPERTY VEXNUMKR_TEST_FILES
  "${CMAKE_CURRENT_SOURCE_DIR}/data/table_memory_test.cpp")

vexnumkr_on_every_engine(loading_test special_ranges_test circle_list_test injection_test)
