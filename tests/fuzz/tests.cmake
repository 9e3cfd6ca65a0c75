# In the other builds: each target over its corpus, where every input that was ever found stays.

function(vexnumkr_fuzz_program name sources links)
  add_executable(fuzz_corpus_${name} "${CMAKE_CURRENT_SOURCE_DIR}/fuzz/corpus_test.cpp" ${sources})
  target_include_directories(fuzz_corpus_${name} PRIVATE
    "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(fuzz_corpus_${name} PRIVATE vexnumkr_options ${links} GTest::gtest_main)
  target_compile_definitions(fuzz_corpus_${name}
    PRIVATE CORPUS_FOLDER="${CMAKE_CURRENT_SOURCE_DIR}/fuzz/corpus/${name}")
  set_target_properties(fuzz_corpus_${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  add_test(NAME fuzz_corpus_${name} COMMAND fuzz_corpus_${name})
  set_tests_properties(fuzz_corpus_${name} PROPERTIES LABELS "unit;fuzz" TIMEOUT 120
    ENVIRONMENT "${VEXNUMKR_TEST_ENVIRONMENT}")
endfunction()

include(fuzz/targets.cmake)
set_property(GLOBAL APPEND PROPERTY VEXNUMKR_TEST_FILES
  "${CMAKE_CURRENT_SOURCE_DIR}/fuzz/corpus_test.cpp")

vexnumkr_engine_environment(environment postgresql)
set_tests_properties(fuzz_corpus_statement_servers PROPERTIES
  LABELS "engine;fuzz;postgresql;mariadb" FIXTURES_REQUIRED servers ENVIRONMENT "${environment}")
