# Writes the module definition file of a library for Windows: what the list of its public symbols names is
# exported, under the names that the compiler has given it. Fails when the objects have less than that.
#
#   cmake -DNM=PROGRAM -DOBJECTS=FILE -DLIST=FILE -DOUTPUT=FILE -P module_definition.cmake
#
# OBJECTS names the object files, one a line. LIST is what nm tells of the same library on Linux.
cmake_minimum_required(VERSION 3.25)

# Sizes are of another integer type on each system, and brackets hold CMake's lists together.
function(comparable text result)
  string(REGEX REPLACE "unsigned (long long|long|int)" "size" text "${text}")
  string(REPLACE "[" "{" text "${text}")
  string(REPLACE "]" "}" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# symbols(RESULT [OPTION...]): what the objects define, a line each, always in the same order.
function(symbols result)
  execute_process(COMMAND "${NM}" --extern-only --defined-only --no-sort ${ARGN} "@${OBJECTS}"
    OUTPUT_VARIABLE told COMMAND_ERROR_IS_FATAL ANY)
  comparable("${told}" told)
  string(REPLACE "\n" ";" told "${told}")
  set(${result} "${told}" PARENT_SCOPE)
endfunction()

file(READ "${LIST}" wanted)
comparable("${wanted}" wanted)
string(REGEX REPLACE "@@[^\n]*\n" ";" wanted "${wanted}")

symbols(names)
symbols(meanings --demangle)
set(exports "")
set(missing ${wanted})
foreach(name meaning IN ZIP_LISTS names meanings)
  if(name MATCHES "^[0-9a-f]+ T (.+)$")
    set(name "${CMAKE_MATCH_1}")
    string(REGEX REPLACE "^[0-9a-f]+ " "" meaning "${meaning}")
    if(meaning IN_LIST wanted)
      string(APPEND exports "  ${name}\n")
      list(REMOVE_ITEM missing "${meaning}")
    endif()
  endif()
endforeach()

list(REMOVE_ITEM missing "")
if(missing)
  list(JOIN missing "\n  " missing)
  message(FATAL_ERROR "${LIST} names what is not there:\n  ${missing}")
endif()
file(WRITE "${OUTPUT}" "EXPORTS\n${exports}")
