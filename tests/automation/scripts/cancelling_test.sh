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
