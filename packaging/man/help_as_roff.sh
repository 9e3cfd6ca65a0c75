#!/usr/bin/env bash
# Puts what the help of a program says of its commands and options into a man page, in place of the line
# @VEXNUMKR_HELP@.
#
#   help_as_roff.sh PROGRAM TEMPLATE PAGE
#
# A help has paragraphs; "Befehle:" and "Angaben:" begin lists, in which an entry begins after two blanks, its
# text after two or more further ones or on the next line.
set -euo pipefail

program=$1
export ASAN_OPTIONS=detect_leaks=0

# help_of COMMAND...
help_of() { "$program" "$@" --help; }

commands() { awk '/^Befehle:/ { on = 1; next } /^$/ { on = 0 } on && /^  [a-z]/ { print $1 }'; }

# The paragraph behind the example, and the list "Angaben:".
as_roff() {
  awk '
    function escaped(text) { gsub(/\\/, "\\e", text); gsub(/-/, "\\-", text); return text }
    function line(text) { text = escaped(text); if (text ~ /^[.\x27]/) text = "\\&" text; print text }
    function entry(text,    name, rest, short) {
      rest = ""
      if (match(text, /  +/)) { rest = substr(text, RSTART + RLENGTH); text = substr(text, 1, RSTART - 1) }
      if (match(text, /^-[a-zA-Z],/)) { short = substr(text, 1, 2); text = substr(text, 4) }
      name = text; sub(/ .*/, "", name); sub(/^[^ ]* ?/, "", text)
      print ".TP"
      print "\\fB" escaped(name) "\\fR" (short ? ", \\fB" escaped(short) "\\fR" : "") \
        (text ? " \\fI" escaped(text) "\\fR" : "")
      if (rest) line(rest)
    }
    /^Beispiel:/ { part = "example"; next }
    /^Aufruf:/ { part = "call"; next }
    /^(Befehle):/ { part = "commands"; next }
    /^Angaben:/ { part = "options"; next }
    /^[^ ]/ && part == "options" { part = "end" }
    /^$/ { if (part == "example" || part == "call") part = "text"; next }
    part == "text" { line($0) }
    part == "options" && /^  [^ ]/ { entry(substr($0, 3)) }
    part == "options" && /^   / { sub(/^ +/, ""); line($0) }'
}

# command WORD...: the part of one command, and those of the commands below it.
command_part() {
  local help next
  help=$(help_of "$@")
  echo ".SS $*"
  as_roff <<<"$help"
  for next in $(commands <<<"$help"); do command_part "$@" "$next"; done
}

whole_help() {
  local name
  echo ".SH BESCHREIBUNG"
  help_of | as_roff
  echo ".SH BEFEHLE"
  for name in $(help_of | commands); do command_part "$name"; done
}

text=$(whole_help)
mkdir -p "$(dirname "$3")"
while IFS= read -r line; do
  if [ "$line" = @VEXNUMKR_HELP@ ]; then line=$text; fi
  printf '%s\n' "$line"
done <"$2" >"$3"
