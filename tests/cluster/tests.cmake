# Clusters of the tests' own: three nodes of MariaDB with galera-4, and a primary of PostgreSQL with
# its standby.

# vexnumkr_cluster(KIND)
# The cluster of a test run, as the fixture KIND_cluster.
function(vexnumkr_cluster kind)
  set(fixture "${CMAKE_CURRENT_SOURCE_DIR}/cluster/fixture.sh")
  add_test(NAME ${kind}_start COMMAND "${fixture}" ${kind} start "${CMAKE_BINARY_DIR}/tests/${kind}")
  add_test(NAME ${kind}_stop COMMAND "${fixture}" ${kind} stop "${CMAKE_BINARY_DIR}/tests/${kind}")
  set_tests_properties(${kind}_start PROPERTIES FIXTURES_SETUP ${kind}_cluster TIMEOUT 240)
  set_tests_properties(${kind}_stop PROPERTIES FIXTURES_CLEANUP ${kind}_cluster TIMEOUT 60)
endfunction()

# vexnumkr_cluster_test(NAME KIND TIMEOUT [SOURCES ...] LINKS ...)
# A test on a cluster. One at a time: each ill-treats it.
function(vexnumkr_cluster_test name kind timeout)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "SOURCES;LINKS")
  vexnumkr_test(cluster/${name} LABEL "cluster;fault" TIMEOUT ${timeout}
    SOURCES ${arg_SOURCES} LINKS vexnumkr_test_cluster ${arg_LINKS})
  vexnumkr_use_cluster(${name} ${kind})
endfunction()

# The environment and the fixture of a test. Without galera-4 its tests are told as skipped.
function(vexnumkr_use_cluster name kind)
  set(engine_of_galera mariadb)
  set(engine_of_standby postgresql)
  if(kind STREQUAL galera AND NOT GALERA_PROVIDER)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "VEXNUMKR_TEST_WITHOUT=galera-4"
      SKIP_RETURN_CODE 77)
    return()
  endif()
  set_tests_properties(${name} PROPERTIES
    RESOURCE_LOCK ${kind}_cluster FIXTURES_REQUIRED ${kind}_cluster
    ENVIRONMENT "${VEXNUMKR_TEST_ENVIRONMENT};VEXNUMKR_TEST_ENGINE=${engine_of_${kind}};\
VEXNUMKR_TEST_CLUSTER=${kind};VEXNUMKR_TEST_SERVERS=${CMAKE_BINARY_DIR}/tests/${kind}")
endfunction()

find_file(GALERA_PROVIDER libgalera_smm.so PATHS /usr/lib/galera NO_DEFAULT_PATH)
vexnumkr_cluster(standby)
if(GALERA_PROVIDER)
  vexnumkr_cluster(galera)
endif()

add_library(vexnumkr_test_cluster STATIC cluster/test_cluster.cpp)
target_include_directories(vexnumkr_test_cluster PUBLIC "${PROJECT_SOURCE_DIR}/tests")
target_compile_definitions(vexnumkr_test_cluster
  PRIVATE CLUSTER_SCRIPT="${CMAKE_CURRENT_SOURCE_DIR}/cluster/cluster.sh")
target_link_libraries(vexnumkr_test_cluster PUBLIC vexnumkr_platform PRIVATE vexnumkr_options)

vexnumkr_cluster_test(galera_test galera 240
  SOURCES cluster/cluster_main.cpp contract/database_language.cpp
  LINKS vexnumkr_core_session vexnumkr_numbers)
vexnumkr_cluster_test(standby_test standby 120
  SOURCES cluster/cluster_main.cpp contract/database_language.cpp LINKS vexnumkr_core_session)

# The hosts of the long run.
add_executable(cluster_drawing_host cluster/drawing_host.cpp)
target_link_libraries(cluster_drawing_host
  PRIVATE vexnumkr_numbers vexnumkr_qtsql Qt6::Core vexnumkr_options)
add_executable(cluster_dialog_host cluster/dialog_host.cpp)
target_include_directories(cluster_dialog_host PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(cluster_dialog_host
  PRIVATE vexnumkr_dialog_session Qt6::Test vexnumkr_options)
set_target_properties(cluster_drawing_host cluster_dialog_host PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")

vexnumkr_cluster_test(long_run_test galera 1500
  SOURCES cluster/cluster_main.cpp contract/database_language.cpp
  LINKS vexnumkr_core_session)
target_compile_definitions(long_run_test PRIVATE
  DRAWING_HOST="$<TARGET_FILE:cluster_drawing_host>"
  DIALOG_HOST="$<TARGET_FILE:cluster_dialog_host>")
add_dependencies(long_run_test cluster_drawing_host cluster_dialog_host)
add_test(NAME long_run_test@standby COMMAND long_run_test)
set_tests_properties(long_run_test@standby PROPERTIES LABELS "cluster;fault" TIMEOUT 1500)
vexnumkr_use_cluster(long_run_test@standby standby)
