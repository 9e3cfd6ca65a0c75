# How this project's targets are made.

add_library(vexnumkr_options INTERFACE)
target_compile_features(vexnumkr_options INTERFACE cxx_std_20)
target_compile_options(vexnumkr_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow
  # COM's interfaces have no destructors: those would be further slots.
  $<$<NOT:$<BOOL:$<TARGET_PROPERTY:VEXNUMKR_COM>>>:-Wnon-virtual-dtor>
  -Wconversion -Wcast-qual
  # GCC 12 sees these two in its own std::string when it optimises.
  $<$<CONFIG:Release>:-Wno-restrict> $<$<CONFIG:Release>:-Wno-maybe-uninitialized>
  $<$<BOOL:${VEXNUMKR_WERROR}>:-Werror>)
if(VEXNUMKR_SANITIZE)
  set(sanitizers address,undefined)
  if(VEXNUMKR_SANITIZE STREQUAL "thread")
    set(sanitizers thread)
    # Instrumented so, what an std::optional guards looks uninitialised.
    target_compile_options(vexnumkr_options INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_compile_options(vexnumkr_options INTERFACE
    -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vexnumkr_options INTERFACE -fsanitize=${sanitizers})
endif()
# Tells a fuzzer which ways an input has taken.
if(VEXNUMKR_FUZZ)
  target_compile_options(vexnumkr_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# vexnumkr_core_library(NAME SOURCES ... LINKS ...)
# A static library of plain standard C++: it sees the public headers and src/, and links no Qt.
function(vexnumkr_core_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC
    "${PROJECT_SOURCE_DIR}/include" "${PROJECT_BINARY_DIR}/include" "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE vexnumkr_options)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES
    CXX_EXTENSIONS OFF
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# vexnumkr_adapter_library(NAME SOURCES ... LINKS ...)
# A static library that implements platform interfaces on Qt.
function(vexnumkr_adapter_library name)
  vexnumkr_core_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
    QT_NO_KEYWORDS)
endfunction()
