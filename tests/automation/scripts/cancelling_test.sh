#!/usr/bin/env bash
# A script host shows the dialog; its user types a value and thinks better of it.
. "$(dirname "$0")/../wine/steps.sh" "$1"

make_database
sqlite3 "$database" "INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')"
before=$(sqlite3 "$database" .dump)
for application in 2 1; do
  host numbers.vbs "$connection" "$application" Anna
  window Nummernkreise
  keys Down Down Down F2
  write 110
  keys Return Escape F10
  host_ends_with "Init: Boolean True" "shown" "end"
  [ "$before" = "$(sqlite3 "$database" .dump)" ] || fail "the database differs"
  called 'ADODB.Connection#1.RollbackTrans'
  never_called 'ADODB.Connection#1.CommitTrans'
  : >"$folder/calls"
done

# What the host's own dialog has changed meanwhile is part of that.
host numbers.vbs "$connection" 2 Anna
window Nummernkreise
keys alt+n Tab space
until_true "the host's dialog was shown" grep -q 'WWSDialog#1.Show "ORC", 27' "$folder/calls"
keys F10
host_ends_with "Init: Boolean True" "shown" "end"
[ "$before" = "$(sqlite3 "$database" .dump)" ] || fail "the host's dialog has changed the database"
called 'ADODB.Connection#1.Execute "INSERT INTO Nummernkreis_Buchungskreise'
