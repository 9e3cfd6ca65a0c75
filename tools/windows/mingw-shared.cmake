# Debian's cross compiler for Windows, for what shares its C++ runtime with the program that loads it:
# strings, exceptions and types cross the borders of libraries then.
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")

foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "")
endforeach()
