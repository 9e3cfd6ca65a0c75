# Debian's cross compiler for Windows, with the C++ runtime inside of what it links.
#
#   VEXNUMKR_ARCH  x86_64 (the default) or i686
set(VEXNUMKR_ARCH x86_64 CACHE STRING "The processor built for: x86_64 or i686")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VEXNUMKR_ARCH)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${VEXNUMKR_ARCH})

set(mingw ${VEXNUMKR_ARCH}-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw}-windres)

foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/${mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
