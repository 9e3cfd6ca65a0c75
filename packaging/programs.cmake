# What comes with the programs: man pages, completion, and what desktops show.

# Where the manuals are, as the pages end, if they are made.
set(VEXNUMKR_MANUALS "")
set(VEXNUMKR_MANUALS_GERMAN "")
if(VEXNUMKR_DOCUMENTATION)
  set(VEXNUMKR_MANUALS "\nThe manuals (in German) are in\n.IR ${CMAKE_INSTALL_FULL_DOCDIR} .")
  set(VEXNUMKR_MANUALS_GERMAN "\nDie Handbücher sind in\n.IR ${CMAKE_INSTALL_FULL_DOCDIR} .")
endif()

# vexnumkr_man_pages(PROGRAM COMPONENT): the pages man/PROGRAM.1.in and man/de/PROGRAM.1.in.
function(vexnumkr_man_pages program component)
  foreach(language . de)
    cmake_path(SET page NORMALIZE "${CMAKE_CURRENT_BINARY_DIR}/man/${language}/man1/${program}.1")
    cmake_path(SET folder NORMALIZE "${CMAKE_INSTALL_MANDIR}/${language}/man1")
    configure_file(man/${language}/${program}.1.in "${page}" @ONLY)
    install(FILES "${page}" DESTINATION "${folder}" COMPONENT ${component})
  endforeach()
endfunction()

# Distributions have a folder of their own for what packages bring.
set(VEXNUMKR_ZSH_DIR "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING "Completion for zsh")

# vexnumkr_completion(PROGRAM COMPONENT): completion/PROGRAM.bash and completion/_PROGRAM.
function(vexnumkr_completion program component)
  install(FILES completion/${program}.bash RENAME ${program} COMPONENT ${component}
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
  install(FILES completion/_${program} DESTINATION "${VEXNUMKR_ZSH_DIR}" COMPONENT ${component})
endfunction()

# The German page of the host explains its options in the words of --help.
include(options_as_roff.cmake)
vexnumkr_options_as_roff("${PROJECT_SOURCE_DIR}/src/app/help.txt" VEXNUMKR_OPTIONS)

# The program for the command line explains itself in German; what it says goes into its page.
set(VEXNUMKR_HELP "@VEXNUMKR_HELP@")
set(template "${CMAKE_CURRENT_BINARY_DIR}/man/de/vexnumkr.1.in")
set(page "${CMAKE_CURRENT_BINARY_DIR}/man/de/man1/vexnumkr.1")
configure_file(man/de/vexnumkr.1.in "${template}" @ONLY)
add_custom_command(OUTPUT "${page}"
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/man/help_as_roff.sh" "$<TARGET_FILE:vexnumkr-program>"
    "${template}" "${page}"
  DEPENDS vexnumkr-program "${template}" man/help_as_roff.sh VERBATIM)
add_custom_target(vexnumkr_man_page ALL DEPENDS "${page}")
install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/de/man1" COMPONENT tools)
configure_file(man/vexnumkr.1.in man/man1/vexnumkr.1 @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/man/man1/vexnumkr.1"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
vexnumkr_completion(vexnumkr tools)

vexnumkr_man_pages(vexnumkr-host host)
vexnumkr_man_pages(vexnumkr-host-sample host)
vexnumkr_completion(vexnumkr-host host)
# bash looks for a file with the program's name.
install(FILES completion/vexnumkr-host.bash RENAME vexnumkr-host-sample COMPONENT host
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")

install(PROGRAMS desktop/vexnumkr-host-sample TYPE BIN COMPONENT host)
install(FILES desktop/de.vexal.nummernkreise.desktop COMPONENT host
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
# A version has been released once the change log says when.
file(STRINGS "${PROJECT_SOURCE_DIR}/CHANGELOG.md" newest REGEX "^## " LIMIT_COUNT 1)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/CHANGELOG.md")
set(VEXNUMKR_RELEASES "")
if(newest MATCHES "^## ${PROJECT_VERSION} \\(([0-9-]+)\\)$")
  string(CONCAT VEXNUMKR_RELEASES "  <releases>\n"
    "    <release version=\"${PROJECT_VERSION}\" date=\"${CMAKE_MATCH_1}\"/>\n  </releases>\n")
endif()
configure_file(desktop/de.vexal.nummernkreise.metainfo.xml.in de.vexal.nummernkreise.metainfo.xml @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/de.vexal.nummernkreise.metainfo.xml" COMPONENT host
  DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
install(FILES desktop/vexnumkr-host.svg DESTINATION "${icons}/scalable/apps" COMPONENT host)
foreach(size 16 32 48 64 128 256)
  install(FILES desktop/vexnumkr-host-${size}.png RENAME vexnumkr-host.png COMPONENT host
    DESTINATION "${icons}/${size}x${size}/apps")
endforeach()
