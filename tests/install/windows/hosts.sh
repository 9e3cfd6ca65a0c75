#!/usr/bin/env bash
# Works with the hosts in a folder under Wine, as their users do.
#
#   tests/install/windows/hosts.sh FOLDER
#
# FOLDER has the examples, the library and what both need; tools/windows/test-shared.sh makes it.
set -euo pipefail

app=${1:?}
automation=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../automation" && pwd)
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' "$automation/../../CMakeLists.txt")
world=$app/world
"$automation/wine/world.sh" start "$world"
trap '"$automation/wine/world.sh" stop "$world"' EXIT
# shellcheck source=../../automation/wine/steps.sh
. "$automation/wine/steps.sh" "$world"
trap '"$automation/wine/world.sh" stop "$world"' EXIT

# program NAME [ARGUMENT...]: lets the program run, meanwhile.
program() {
  wine "$app/$1.exe" "${@:2}" >"$folder/raw-output" 2>&1 </dev/null &
  host=$!
  answered=
}

dialog_is_closed() { [ "$(windows)" = Einbettung ]; }

# The examples stand for application 1.
make_database
sqlite3 "$database" "UPDATE Nummernkreis_Buchungskreise SET Herkunft='ORB';
  UPDATE Nummernkreis_Zuordnung SET Herkunft='ORB'"
connection="Driver=QSQLITE;Database=Z:$database"
stored="SELECT * FROM Nummernkreise WHERE NSchl='AN' AND Buchungskreis=1"

program numbers
host_ends_with
echo "ok  the library without a window"

program vexnumkr-embed-example "$connection" Anna --demo
host_ends_with "Der Dialog ist geschlossen."
rows "$stored" "1|AN|Angebot|100|120|199|-1|10||JNN"
echo "ok  the dialog is shown and cancelled"

program vexnumkr-embed-example "$connection" Anna
window Einbettung
keys space
window Nummernkreise
keys Down Down Down F2
write 110
keys Return Escape F9
window Abfrage
keys alt+j
until_true "the dialog was closed" dialog_is_closed
rows "$stored" "1|AN|Angebot|110|120|199|-1|10||JNN"
# As its close button would.
wine taskkill /im vexnumkr-embed-example.exe >/dev/null 2>&1
host_ends_with
echo "ok  a value is changed and saved"

program vexnumkr-run-time-example "$connection" Anna
window "Fehler 429"
keys Return
window Nummernkreise
keys F10
host_ends_with "vexnumkr $version" "Der Dialog ist geschlossen."
echo "ok  a host without Qt"
