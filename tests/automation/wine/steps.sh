# The steps of a test in which a host runs under Wine and a user works at its windows.
#
#   . "$(dirname "$0")/../wine/steps.sh" WORLD
#
# WORLD is the file that world.sh has written, in the folder of the test programs. The test gets a
# folder of its own, $folder, and ends with the first step that fails.
# shellcheck shell=bash
set -euo pipefail
# shellcheck source=/dev/null
. "${1:?}"

programs=$(cd "$(dirname "$1")" && pwd)
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")/../scripts" && pwd)
sources=$(cd "$scripts/../../.." && pwd)
folder=$(mktemp -d "$VEXNUMKR_WORLD/test-XXXXXX")
database=$folder/firma.db
connection="Driver=SQLite3;Database=$database"
host=
answered=
export VEXNUMKR_CALL_LOG="Z:$folder/calls" VEXNUMKR_SETTINGS="Z:$folder/settings"
touch "$folder/calls" "$folder/output"

fail() {
  echo "FAILED: $*"
  echo "The windows:"
  windows | sed 's/^/  /'
  echo "The host has printed:"
  output | sed 's/^/  /'
  echo "The last calls:"
  tail -n 15 "$folder/calls" | sed 's/^/  /'
  exit 1
}

# A host that is left behind would keep the keyboard from the tests that follow.
leave() {
  [ -z "$host" ] || wine taskkill /f /im cscript.exe >/dev/null 2>&1 || true
}
trap leave EXIT

# Makes the database with the tables and a small company's rows.
make_database() {
  cat "$sources/src/app/schema/sqlite/ranges.sql" "$scripts/company.sql" | sqlite3 -bail "$database"
}

# host SCRIPT [ARGUMENT...]: lets the script host run a script of that name, meanwhile.
host() {
  wine cscript //nologo "Z:${scripts//\//\\}\\$1" "${@:2}" >"$folder/raw-output" 2>&1 </dev/null &
  host=$!
  answered=
}

# What the host has printed so far.
output() {
  [ ! -e "$folder/raw-output" ] || iconv -f CP437 -t UTF-8 "$folder/raw-output" | tr -d '\r'
}

# The titles of all visible windows.
windows() {
  local window
  for window in $(xdotool search --onlyvisible --name '.' 2>/dev/null); do
    xdotool getwindowname "$window" 2>/dev/null || true
  done
}

host_runs() { [ -n "$host" ] && kill -0 "$host" 2>/dev/null; }

# until_true WHAT COMMAND...: looks again and again whether the command succeeds, for a minute at
# most, and only as long as the host runs.
until_true() {
  local what=$1 deadline=$((SECONDS + 60))
  shift
  until "$@"; do
    host_runs || fail "the host has ended before $what"
    [ "$SECONDS" -lt "$deadline" ] || fail "it has taken too long before $what"
    read -r -t 0.05 <> <(:) || true
  done
}

# Whether the window manager and the display agree that the window with that title has the keyboard,
# and that it is not the box that has just been answered.
is_active() {
  local active
  active=$(xdotool getactivewindow 2>/dev/null) && [ "$active" != "$answered" ] &&
    [ "$(xdotool getwindowfocus 2>/dev/null)" = "$active" ] &&
    [ "$(xdotool getwindowname "$active" 2>/dev/null)" = "$1" ]
}

# Waits until the window with that title takes the input.
window() { until_true "the window \"$1\" was there" is_active "$1"; }

# Presses keys, e.g. Down F2 alt+s.
keys() { xdotool key "$@"; }
# Writes on the keyboard.
write() { xdotool type "$1"; }

# box TITLE KEY LINE...: waits for the message box, compares what it says, and answers with the key.
# Boxes copy their text at Ctrl+C: the title, the text and the buttons, with rules around them.
box() {
  local title=$1 key=$2 rule=--------------------------- text
  shift 2
  window "$title"
  keys ctrl+c
  text=$(wine "$programs/clipboard-text.exe" | tr -d '\r') || fail "\"$title\" cannot be read"
  diff <(printf '%s\n' "$rule" "$title" "$rule" "$@" "$rule") \
    <(head -n $((4 + $#)) <<<"$text") || fail "the box \"$title\" says something else"
  answered=$(xdotool getactivewindow)
  keys "$key"
}

# The host ends by itself, having printed exactly that, e.g. "made" "done", or nothing.
host_ends_with() {
  local status=0
  timeout 60 tail --pid="$host" -f /dev/null || fail "the host does not end"
  wait "$host" || status=$?
  host=
  [ "$status" -eq 0 ] || fail "the host ends with $status"
  diff <(printf '%s' "${@/%/$'\n'}") <(output) || fail "the host should have printed something else"
}

# rows QUERY ROW...: the database has exactly these rows, columns separated by "|".
rows() {
  diff <(printf '%s\n' "${@:2}") <(sqlite3 "$database" "$1") || fail "the database differs: $1"
}

# called TEXT: a stand-in has received that call, as the log writes it.
called() { grep -qF -- "$1" "$folder/calls" || fail "nobody has called $1"; }
# called_in_order TEXT...: the stand-ins have received these calls one after the other, whatever lies between.
called_in_order() {
  local line=0 next call
  for call in "$@"; do
    next=$(call=$call awk -v behind="$line" 'NR > behind && index($0, ENVIRON["call"]) { print NR; exit }' \
      "$folder/calls")
    [ -n "$next" ] || fail "nobody has called $call behind line $line"
    line=$next
  done
}
never_called() { ! grep -qF -- "$1" "$folder/calls" || fail "somebody has called $1"; }
