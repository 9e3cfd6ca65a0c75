# What people find: menu entry, description, icons, manual pages and completion. The pages and the
# completion know the options that --help names, all of them and no others.

# has COMMAND: whether it is there; says so when it is not.
has() { command -v "$1" >/dev/null || { echo "skipped: $1 is not installed" && false; }; }

if has desktop-file-validate; then desktop-file-validate "$PREFIX"/share/applications/*.desktop; fi
if has appstreamcli; then appstreamcli validate --no-net --pedantic "$PREFIX"/share/metainfo/*.xml; fi

entry=$PREFIX/share/applications/de.vexal.nummernkreise.desktop
test -x "$PREFIX/bin/$(sed -n 's/^Exec=//p' "$entry")"
icon=$(sed -n 's/^Icon=//p' "$entry")
for size in 16 32 48 64 128 256; do
  png=$PREFIX/share/icons/hicolor/${size}x$size/apps/$icon.png
  test -s "$png"
  if has file; then file "$png" | grep "PNG image data, $size x $size"; fi
done
test -s "$PREFIX/share/icons/hicolor/scalable/apps/$icon.svg"

# The options that a help names, one a line, and the commands.
options() { sed -nE 's/^ *(-[a-zA-Z],)?(--[a-z][a-z-]*).*/\2/p'; }
commands() { awk '/^Befehle:/ { on = 1; next } /^$/ { on = 0 } on && /^  [a-z]/ { print $1 }'; }

# options_of PROGRAM: its own, and those of all its commands.
options_of() {
  local command
  "$1" --help | options
  for command in $("$1" --help | commands); do "$1" "$command" --help | options; done
}

for program in "$PREFIX"/bin/*; do
  name=$(basename "$program")
  options_of "$program" | sort -u >"$name.help"
  test -s "$name.help"
  for page in "$PREFIX/share/man/man1/$name.1" "$PREFIX/share/man/de/man1/$name.1"; do
    if has man; then
      MANROFFOPT='' MANWIDTH=80 man --warnings -E UTF-8 -l "$page" 2>"$name.warnings" >"$name.text"
      cat "$name.warnings"
      test ! -s "$name.warnings"
    fi
    # Options are explained by tagged paragraphs.
    grep -A1 '^\.TP' "$page" | sed -n 's/^\\fB\(\\-\\-[a-z\\-]*\)\\fR.*/\1/p' | tr -d '\\' | sort -u >"$name.page"
    diff "$name.help" "$name.page"
  done
done

completed() {
  bash -c '. /usr/share/bash-completion/bash_completion; . "$1"
    COMP_WORDS=("$2" "${@:3}"); COMP_CWORD=$(($# - 2)); COMP_LINE="${*:2}"; COMP_POINT=${#COMP_LINE}
    "$(complete -p "$2" | sed "s/.*-F \([^ ]*\).*/\1/")" 2>/dev/null; printf "%s\n" "${COMPREPLY[@]}"' \
    - "$PREFIX/share/bash-completion/completions/vexnumkr-host" vexnumkr-host "$@"
}

if [ -e /usr/share/bash-completion/bash_completion ]; then
  completed -- | sort >bash.options
  diff vexnumkr-host.help bash.options
  [ "$(completed --app)" = --application ]
  [ "$(completed --application '')" = $'1\n2' ]
  touch "verbindung file.txt"
  [ "$(completed --connection-file verb)" = "verbindung file.txt" ]
else
  echo "skipped: bash-completion is not installed"
fi

if has zsh; then
  functions=$PREFIX/share/zsh/site-functions
  zsh -n "$functions/_vexnumkr-host"
  zsh -f "$ROOT/tests/install/complete.zsh" "$functions" "vexnumkr-host --" >said
  grep -oE -- '--[a-z][a-z-]*' said | sort -u >zsh.options
  diff vexnumkr-host.help zsh.options
fi
