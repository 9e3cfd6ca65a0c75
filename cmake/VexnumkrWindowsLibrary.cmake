# What is different about a shared library for Windows.
include(VexnumkrVersionResource)

# vexnumkr_windows_library(TARGET LIST)
# The file's name carries the major version, as sonames do elsewhere, and it differs from that of the
# automation server, since Windows does not tell vexnumkr from VEXNumKr. What leaves it is what LIST names.
# TARGET is made of objects of other targets.
function(vexnumkr_windows_library target list)
  get_target_property(name ${target} OUTPUT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_NAME ${name}-${PROJECT_VERSION_MAJOR})

  get_target_property(objects ${target} SOURCES)
  set(definition "${CMAKE_CURRENT_BINARY_DIR}/${name}.def")
  file(GENERATE OUTPUT "${definition}.objects" CONTENT "\"$<JOIN:${objects},\"\n\">\"\n")
  set(script "${PROJECT_SOURCE_DIR}/cmake/module_definition.cmake")
  add_custom_command(OUTPUT "${definition}"
    COMMAND "${CMAKE_COMMAND}" "-DNM=${CMAKE_NM}" "-DOBJECTS=${definition}.objects" "-DLIST=${list}"
      "-DOUTPUT=${definition}" -P "${script}"
    DEPENDS ${objects} "${definition}.objects" "${list}" "${script}" VERBATIM)
  target_sources(${target} PRIVATE "${definition}")
  # Nobody reads the names of what does not leave it.
  target_link_options(${target} PRIVATE -s)
  vexnumkr_version_resource(${target})
endfunction()
