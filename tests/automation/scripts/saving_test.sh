#!/usr/bin/env bash
# A script host shows the dialog; its user types a value and saves.
. "$(dirname "$0")/../wine/steps.sh" "$1"

make_database
host numbers.vbs "$connection" 2 Anna
window Nummernkreise
keys Down Down Down F2
write 110
keys Return
write 111
keys Return Escape F9
host_ends_with "Init: Boolean True" "shown" "end"
rows "SELECT * FROM Nummernkreise WHERE NSchl='AN' AND Buchungskreis=1" \
  "1|AN|Angebot|110|111|199|-1|10||JNN"
# What the component has asked of the host's objects, in the host's terms.
called 'ADODB.Connection#1.IsolationLevel let 1048576'
called 'ADODB.Command#1.ActiveConnection set ADODB.Connection#1'
called 'ADODB.Command#1.CommandType let 1'
called 'ADODB.Command#1.CommandTimeout let 0'
called "ADODB.Connection#2.ConnectionString let \"$connection\""
called 'ADODB.Connection#2.ConnectionTimeout let 0'
called 'ADODB.Connection#2.CursorLocation let 2'
called 'ADODB.Connection#2.Open "", "", "", -1'
called 'ADODB.Connection#2.Close'
# The transaction is tried when the dialog opens, and begun to write, beneath the lock.
called_in_order 'ADODB.Connection#1.BeginTrans' 'ADODB.Connection#1.RollbackTrans' \
  'ADODB.Connection#1.BeginTrans' \
  'ADODB.Connection#1.Execute "DELETE FROM Nummernkreise WHERE 1 = 0"' \
  'ADODB.Command#1.CommandText let "UPDATE Nummernkreise SET' \
  'ADODB.Connection#1.CommitTrans'
[ "$(grep -c RollbackTrans "$folder/calls")" = 1 ] || fail "something was rolled back"
