# How what is built gets to those who use it. The components of an installation are those of
# packages: runtime and numbers (what hosts load, with and without a window), development (what hosts are built with), tools (programs without
# a window, and the schemas), host (the stand-alone host), documentation.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
if(WIN32)
  include(VexnumkrWindowsLibrary)
endif()

# Documentation is where the packages' name leads, not the project's.
if("$CACHE{CMAKE_INSTALL_DOCDIR}" STREQUAL "")
  set(CMAKE_INSTALL_DOCDIR "${CMAKE_INSTALL_DATAROOTDIR}/doc/vexnumkr")
  GNUInstallDirs_get_absolute_install_dir(CMAKE_INSTALL_FULL_DOCDIR CMAKE_INSTALL_DOCDIR DOCDIR)
endif()

set(VEXNUMKR_DATA_DIR "${CMAKE_INSTALL_DATADIR}/vexnumkr")
set(VEXNUMKR_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/vexnumkr")

# vexnumkr_public_library(TARGET COMPONENT EXPORT_MAP FILE EXPORT_LIST FILE [RUNTIME PART])
# A shared library that hosts link as vexnumkr::<EXPORT_NAME> after find_package(vexnumkr COMPONENTS COMPONENT):
# versioned, found with its headers in the build and where it is installed. The map says which symbols leave
# it, on Windows the list does. PART is the component of the installation that it belongs to, if not runtime.
function(vexnumkr_public_library target component)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "EXPORT_MAP;EXPORT_LIST;RUNTIME" "")
  if(NOT arg_RUNTIME)
    set(arg_RUNTIME runtime)
  endif()
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  target_link_libraries(${target} PUBLIC vexnumkr_headers)
  if(WIN32)
    vexnumkr_windows_library(${target} "${arg_EXPORT_LIST}")
  else()
    target_link_options(${target} PRIVATE "LINKER:--version-script=${arg_EXPORT_MAP}")
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${arg_EXPORT_MAP}")
  endif()
  install(TARGETS ${target} EXPORT vexnumkr-${component}
    RUNTIME COMPONENT ${arg_RUNTIME}
    LIBRARY COMPONENT ${arg_RUNTIME} NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development)
  install(EXPORT vexnumkr-${component} FILE vexnumkr-${component}-targets.cmake
    NAMESPACE vexnumkr:: DESTINATION "${VEXNUMKR_CMAKE_DIR}" COMPONENT development)
endfunction()

# vexnumkr_pkg_config(NAME DESCRIPTION): NAME.pc for hosts that are not built by CMake.
function(vexnumkr_pkg_config name description)
  set(PKG_NAME "${name}")
  set(PKG_DESCRIPTION "${description}")
  file(RELATIVE_PATH PKG_PREFIX "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
  configure_file("${PROJECT_SOURCE_DIR}/packaging/vexnumkr.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc"
    @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endfunction()

# The headers alone: all that a host needs which loads the library at run time.
add_library(vexnumkr_headers INTERFACE)
add_library(vexnumkr::headers ALIAS vexnumkr_headers)
set_target_properties(vexnumkr_headers PROPERTIES EXPORT_NAME headers)
target_compile_features(vexnumkr_headers INTERFACE cxx_std_20)
target_include_directories(vexnumkr_headers INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
install(TARGETS vexnumkr_headers EXPORT vexnumkr-headers)
install(EXPORT vexnumkr-headers FILE vexnumkr-headers-targets.cmake
  NAMESPACE vexnumkr:: DESTINATION "${VEXNUMKR_CMAKE_DIR}" COMPONENT development)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/vexnumkr" "${PROJECT_BINARY_DIR}/include/vexnumkr"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development FILES_MATCHING PATTERN "*.h")

configure_package_config_file("${PROJECT_SOURCE_DIR}/packaging/vexnumkr-config.cmake.in"
  "${PROJECT_BINARY_DIR}/vexnumkr-config.cmake" INSTALL_DESTINATION "${VEXNUMKR_CMAKE_DIR}"
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/vexnumkr-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/vexnumkr-config.cmake"
  "${PROJECT_BINARY_DIR}/vexnumkr-config-version.cmake"
  DESTINATION "${VEXNUMKR_CMAKE_DIR}" COMPONENT development)
