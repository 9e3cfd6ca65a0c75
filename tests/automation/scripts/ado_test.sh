#!/usr/bin/env bash
# The stand-ins for ADO's classes answer as ADO does, and what they write lies in the database.
. "$(dirname "$0")/../wine/steps.sh" "$1"

make_database
VEXNUMKR_COLUMN_TYPES="Aktiviert=11" host ado.vbs "$connection"
odbc="Microsoft OLE DB Provider for ODBC Drivers"
vbscript="Microsoft VBScript runtime error"
host_ends_with \
  "defaults 30 15 2 -1" \
  "open True 1048576" \
  "Long 1 String Null Boolean True" \
  "Long 100 String String Boolean True" \
  "first 1" \
  "changed 3" \
  "changed 2" \
  "found 2, first Anna" \
  "behind the last row: 3021, Kein aktueller Datensatz, ADODB" \
  "no row: 3021, Kein aktueller Datensatz, ADODB" \
  "no such column: 3265, Das Feld \"nix\" gibt es in der Datensatzgruppe nicht., ADODB" \
  "closed: 3704, Die Datensatzgruppe ist geschlossen., ADODB" \
  "no such table: -2147217865, [SQLite]no such table: nix (1), $odbc" \
  "no statement: -2147217900, [SQLite]near \"SELEKT\": syntax error (1), $odbc" \
  "twice: -2147217873, [SQLite]UNIQUE constraint failed: tblUser.strUserName_PK (19), $odbc" \
  "nested: -2147168237, Es läuft bereits eine Transaktion., $odbc" \
  "no transaction: -2147217900, [SQLite]cannot commit - no transaction is active (1), $odbc" \
  "no such member: 438, Object doesn't support this property or method, $vbscript" \
  "method set: 438, Object doesn't support this property or method, $vbscript" \
  "no number: 13, Type mismatch, $vbscript" \
  "connection closed: 3704, Die Datenbankverbindung ist geschlossen., ADODB" \
  "end"
rows "SELECT AktuellerWert FROM Nummernkreise ORDER BY NSchl, Buchungskreis" 8 120 8 100 200
rows "SELECT NBezeichnung, Aktiviert, Maske IS NULL FROM Nummernkreise
      WHERE NSchl='RE' AND Buchungskreis=2" "Proforma|-1|1"
called 'ADODB.Connection#1.Execute "UPDATE Nummernkreise SET AktuellerWert=7'
called 'ADODB.Recordset#1.Open "SELECT * FROM Nummernkreise'
