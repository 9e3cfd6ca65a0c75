# The stand-alone host and the example see the component as every host does: through the public
# headers, and the system, whose files it opens, through POSIX. Run with -DSOURCE_DIR=... -P.
cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}"
  "${SOURCE_DIR}/src/app/*.h" "${SOURCE_DIR}/src/app/*.cpp" "${SOURCE_DIR}/examples/*.cpp")
if(files STREQUAL "")
  message(FATAL_ERROR "no sources of hosts below ${SOURCE_DIR}")
endif()
set(failures "")
foreach(file IN LISTS files)
  file(STRINGS "${SOURCE_DIR}/${file}" includes REGEX "^#include ")
  foreach(line IN LISTS includes)
    if(NOT line MATCHES "^#include (\"app/|<vexnumkr/|<Qt[A-Z][A-Za-z]+/|<[a-z_]+>|<(fcntl|unistd|sys/stat)\\.h>)")
      list(APPEND failures "${file}: ${line}")
    endif()
  endforeach()
endforeach()
if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "Not what a host includes:\n  ${text}")
endif()
