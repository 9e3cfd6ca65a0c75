#!/usr/bin/env bash
# Hosts go on drawing numbers while the dialog is open; saving keeps what they have drawn.
. "$(dirname "$0")/../wine/steps.sh" "$1"

make_database
host numbers.vbs "$connection" 2 Anna
window Nummernkreise
keys Down Down Down F2
write 110
keys Return Escape
for _ in $(seq 20); do
  sqlite3 -cmd ".timeout 0" "$database" \
    "UPDATE Nummernkreise SET AktuellerWert=AktuellerWert+1 WHERE NSchl='RE' AND Buchungskreis=1" ||
    fail "a host cannot draw"
done
drawn=$(sqlite3 "$database" "SELECT AktuellerWert FROM Nummernkreise WHERE NSchl='RE' AND Buchungskreis=1")
keys F9
host_ends_with "Init: Boolean True" "shown" "end"
rows "SELECT AktuellerWert FROM Nummernkreise WHERE NSchl='RE' AND Buchungskreis=1" "$drawn"
rows "SELECT StartWert FROM Nummernkreise WHERE NSchl='AN' AND Buchungskreis=1" 110
