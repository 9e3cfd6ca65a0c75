# Includes point one way: each folder of the core sees only those before it, and no library but the
# standard one. Run with -DSOURCE_DIR=... -P.
cmake_minimum_required(VERSION 3.25)

set(order platform data/table data/sql data/stored data rules/saving rules hosting dialogs/side dialogs/main)
# What has to do with windows, which data and rules do not know.
set(windows "platform/(forms|tree_grid|descriptions|services)\\.h")
set(failures "")

# The folder of the core that a path below src/ belongs to.
function(layer_of path result)
  foreach(folder data/table data/sql data/stored rules/saving dialogs/side dialogs/main platform hosting data rules)
    if(path MATCHES "^${folder}/")
      set(${result} "${folder}" PARENT_SCOPE)
      return()
    endif()
  endforeach()
  set(${result} "" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}/src"
  "${SOURCE_DIR}/src/platform/*.[hc]*" "${SOURCE_DIR}/src/data/*.[hc]*"
  "${SOURCE_DIR}/src/hosting/*.[hc]*" "${SOURCE_DIR}/src/rules/*.[hc]*"
  "${SOURCE_DIR}/src/dialogs/*.[hc]*")
list(FILTER files INCLUDE REGEX "\\.(h|cpp)$")
if(files STREQUAL "")
  message(FATAL_ERROR "no sources below ${SOURCE_DIR}/src")
endif()

foreach(file IN LISTS files)
  layer_of("${file}" own)
  list(FIND order "${own}" own_place)
  file(STRINGS "${SOURCE_DIR}/src/${file}" includes REGEX "^#include ")
  foreach(line IN LISTS includes)
    if(line MATCHES "^#include \"(.+)\"")
      set(included "${CMAKE_MATCH_1}")
      layer_of("${included}" layer)
      list(FIND order "${layer}" place)
      if(place EQUAL -1 OR place GREATER own_place)
        list(APPEND failures "src/${file} includes ${included}")
      endif()
      if(own MATCHES "^(data|rules)" AND included MATCHES "^${windows}$")
        list(APPEND failures "src/${file} knows a window: ${included}")
      endif()
    elseif(NOT line MATCHES "^#include <(vexnumkr/[A-Za-z_]+\\.h|[a-z_]+)>")
      list(APPEND failures "src/${file}: ${line}")
    endif()
  endforeach()
  file(STRINGS "${SOURCE_DIR}/src/${file}" conditions REGEX "^# *if.*(_WIN32|__linux__|__APPLE__)")
  if(conditions)
    list(APPEND failures "src/${file}: ${conditions}")
  endif()
endforeach()

# The public headers know each other and the standard library; one names a Qt class without its
# header.
file(GLOB headers RELATIVE "${SOURCE_DIR}/include" "${SOURCE_DIR}/include/vexnumkr/*.h")
foreach(file IN LISTS headers)
  file(STRINGS "${SOURCE_DIR}/include/${file}" includes REGEX "^#include ")
  foreach(line IN LISTS includes)
    if(NOT line MATCHES "^#include <(vexnumkr/[A-Za-z_]+\\.h|[a-z_]+)>")
      list(APPEND failures "include/${file}: ${line}")
    endif()
  endforeach()
endforeach()

# What lies around the core sees it only where it has to, and one adapter knows another only where it
# is made of it: the forms know the face of the grid. The adapter for automation, the number
# library and what is known of the engines do without Qt; the program for the command line shares with
# the stand-alone host what reads connection strings and defines the tables.
set(seen_by_engines platform engines)
set(seen_by_adapters/automation platform engines adapters/automation)
set(seen_by_adapters/qtsql platform engines adapters/qtsql)
set(seen_by_adapters/qt platform adapters/qt)
set(seen_by_adapters/qtgrid platform adapters/qt adapters/qtgrid)
set(seen_by_adapters/qtforms platform adapters/qt adapters/qtgrid/qt_tree_grid.h adapters/qtforms)
set(seen_by_component platform hosting dialogs/main adapters/qtforms component)
set(seen_by_windows platform hosting adapters/automation component windows)
set(seen_by_numbers platform engines data rules numbers)
set(seen_by_cli app/command_line app/connection_file app/process_list app/schema/schema cli)
foreach(folder engines adapters/automation adapters/qtsql adapters/qt adapters/qtgrid
    adapters/qtforms component windows numbers cli)
  list(JOIN seen_by_${folder} "|" seen)
  file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}/src"
    "${SOURCE_DIR}/src/${folder}/*.h" "${SOURCE_DIR}/src/${folder}/*.cpp")
  foreach(file IN LISTS files)
    file(STRINGS "${SOURCE_DIR}/src/${file}" includes REGEX "^#include [\"<]")
    foreach(line IN LISTS includes)
      if((line MATCHES "\"" AND NOT line MATCHES "\"(${seen})[/.\"]")
          OR (folder MATCHES "^(adapters/automation|engines|numbers)$" AND line MATCHES "<Q"))
        list(APPEND failures "src/${file}: ${line}")
      endif()
    endforeach()
  endforeach()
endforeach()

# The stand-alone host and the example see the component as every host does.
file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}"
  "${SOURCE_DIR}/src/app/*.h" "${SOURCE_DIR}/src/app/*.cpp" "${SOURCE_DIR}/examples/*.cpp")
foreach(file IN LISTS files)
  file(STRINGS "${SOURCE_DIR}/${file}" includes REGEX "^#include ")
  foreach(line IN LISTS includes)
    if(NOT line MATCHES "^#include (\"app/|\"library\\.h\"|<vexnumkr/|<Q[A-Za-z]+>|<[a-z_]+>|<(dlfcn|fcntl|sys/stat|unistd|windows)\\.h>)")
      list(APPEND failures "${file}: ${line}")
    endif()
  endforeach()
endforeach()

# Qt's headers are named without the module that they are in.
file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}"
  "${SOURCE_DIR}/src/*.h" "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/tests/*.h"
  "${SOURCE_DIR}/tests/*.cpp" "${SOURCE_DIR}/bench/*.h" "${SOURCE_DIR}/bench/*.cpp"
  "${SOURCE_DIR}/examples/*.cpp")
list(FILTER files EXCLUDE REGEX "^src/adapters/qtsql/|^tests/contract/")
foreach(file IN LISTS files)
  file(STRINGS "${SOURCE_DIR}/${file}" includes REGEX "^#include <Qt[A-Z][A-Za-z]+/[A-Za-z]+>")
  foreach(line IN LISTS includes)
    list(APPEND failures "${file}: ${line}")
  endforeach()
endforeach()

if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "Includes that point the wrong way:\n  ${text}")
endif()
