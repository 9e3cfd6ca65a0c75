# vexnumkr_options_as_roff(FILE VARIABLE)
# What --help says of a program's options, as a man page writes it. In FILE an option begins after two
# blanks, its text after two or more further ones, and goes on in indented lines; a paragraph follows.
function(vexnumkr_options_as_roff file variable)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
  file(READ "${file}" text)
  string(REGEX REPLACE "(^|\n)  (--[^\n]*[^ \n])  +" "\n.TP\n\\\\fB\\2\\\\fR\n" text "${text}")
  string(REGEX REPLACE "(^|\n)(\\\\fB--[a-z-]+) ([^\n]+)\\\\fR\n" "\\1\\2\\\\fR \\\\fI\\3\\\\fR\n"
    text "${text}")
  string(REGEX REPLACE "\n   +" "\n" text "${text}")
  string(REGEX REPLACE "\n\n" "\n.PP\n" text "${text}")
  string(REPLACE "-" "\\-" text "${text}")
  string(STRIP "${text}" text)
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()
