#!/usr/bin/env bash
# What goes wrong comes in a box with the database's own words, and never as an error of the host's.
. "$(dirname "$0")/../wine/steps.sh" "$1"

make_database
sqlite3 "$database" "DROP TABLE tblUser"
for application in 2 1 3; do
  host numbers.vbs "$connection" "$application" Anna
  box "Fehler -2147217865" Return "VXNummernkreise" "Init: [SQLite]no such table: tblUser (1)"
  host_ends_with "Init: Boolean False" "end"
done

# Without a connection every step of opening the dialog fails for itself, and so does closing it.
host unprepared.vbs
box "Fehler 91" Return "basAllgemein" "basInititialize: Objektvariable nicht festgelegt"
box "Fehler 91" Return "basAllgemein" "CheckSonderkreise: Objektvariable nicht festgelegt"
box "Fehler 91" Return "basAllgemein" "RefreshCombo: Objektvariable nicht festgelegt"
box "Fehler 380" Return "frmNummernkreise" "Form_Load: Ungültiger Eigenschaftswert"
window Nummernkreise
keys Escape
box "Fehler 91" Return "frmNummernkreise" "Form_QueryUnload: Objektvariable nicht festgelegt"
box "Fehler 91" Return "VXNummernkreise" "Init: Objektvariable nicht festgelegt"
box "Fehler 13" Return "VXNummernkreise" "Init: Typen unverträglich"
host_ends_with "shown" "Init: False" "asked for the connection string" "Init: False" "end"
