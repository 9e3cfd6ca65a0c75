# The number library on real databases.
add_library(vexnumkr_numbers_database STATIC
  numbers/numbers_database.cpp "${PROJECT_SOURCE_DIR}/src/app/schema/schema.cpp"
  "${PROJECT_SOURCE_DIR}/src/app/sql.cpp")
target_include_directories(vexnumkr_numbers_database
  PUBLIC "${PROJECT_SOURCE_DIR}/tests" "${CMAKE_BINARY_DIR}/src/app/generated")
target_link_libraries(vexnumkr_numbers_database
  PUBLIC vexnumkr_numbers vexnumkr_fresh_database Qt6::Core GTest::gtest
  PRIVATE vexnumkr_options)

# vexnumkr_numbers_test(NAME LABEL [TIMEOUT SECONDS] [SOURCES ...] [LINKS ...])
# A test on a NumbersDatabase, on every engine.
function(vexnumkr_numbers_test name label)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "TIMEOUT" "SOURCES;LINKS")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  vexnumkr_test(numbers/${name} LABEL ${label} TIMEOUT ${arg_TIMEOUT}
    SOURCES contract/qt_main.cpp ${arg_SOURCES} LINKS vexnumkr_numbers_database ${arg_LINKS})
  vexnumkr_on_every_engine(${name})
endfunction()

vexnumkr_numbers_test(draw_test unit)
