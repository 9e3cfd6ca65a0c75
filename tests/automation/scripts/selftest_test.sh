#!/usr/bin/env bash
# The administrators' self-test finds nothing wrong where nothing is, finds what is, and leaves the
# database as it was.
. "$(dirname "$0")/../wine/steps.sh" "$1"

dump() { sqlite3 "$database" .dump; }

# Lets the self-test run to its end, and puts into $found how many deviations it has found.
self_test() {
  host ../../../tools/windows/selftest.vbs "/verbindung:$connection" /anwendung:1 /benutzer:Becker
  timeout 120 tail --pid="$host" -f /dev/null || fail "the self-test does not end"
  host=
  [ "$(output | tail -n 1)" = "Ende des Selbsttests" ] || fail "the self-test has broken off"
  found=$(output | sed -n 's/.* Pruefungen, \([0-9]*\) Abweichungen$/\1/p')
}

make_database
dump >"$folder/before"
self_test
[ "$found" = 0 ] || fail "the self-test objects to a sound database"
dump | diff "$folder/before" - || fail "the self-test has changed the database"

sqlite3 "$database" "ALTER TABLE Nummernkreise RENAME COLUMN Aktiviert TO Aktiv"
self_test
[ "$found" -gt 0 ] || fail "the self-test has not missed a column"
output | grep -q "ABWEICHUNG  Feld Aktiviert" || fail "the self-test does not say which one"
