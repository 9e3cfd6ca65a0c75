# What Windows shows of a library file: its version, and whose it is.
enable_language(RC)

# vexnumkr_version_resource(TARGET)
function(vexnumkr_version_resource target)
  set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${resource}.in" @ONLY)
  file(GENERATE OUTPUT "${resource}" INPUT "${resource}.in" TARGET ${target})
  target_sources(${target} PRIVATE "${resource}")
endfunction()
