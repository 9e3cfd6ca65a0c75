#!/usr/bin/env bash
# The dialog reaches the booking circles and the settings of the host, and its special ranges.
. "$(dirname "$0")/../wine/steps.sh" "$1"

make_database
sqlite3 "$database" "INSERT INTO Nummernkreis_Sonderkreise VALUES ('RP','RE','Proforma',0,'ORC')"
echo 'Buchungskreise/OnNewAN=1' >"$folder/settings"
host numbers.vbs "$connection" 2 Anna
window Nummernkreise

keys alt+n Tab space
until_true "the host's dialog was shown" grep -q 'WWSDialog#1.Show "ORC", 27' "$folder/calls"
called 'vxtComDlg.WWSDialog#1.Connection let ADODB.Connection#1'
called 'vxtComDlg.WWSDialog#1.MultiSelect let False'
called 'the dialog takes input: False'

keys alt+e
window Einstellungen
called 'VEXSetting.VXSettings#1.Init 0, ADODB.Connection#3'
called 'VEXSetting.VXSettings#1.GetSetting "Buchungskreise", "OnNewAN", &"", "Standard", "Standard", "0"'
keys Return
window Nummernkreise
called 'VEXSetting.VXSettings#1.SaveSetting "Buchungskreise", "ONNewAN", "1", "Standard"'

keys alt+s
window Sonderkreise
keys space Return
window Nummernkreise

# The new range stands last, with its standard row three rows above the end.
keys alt+b Tab Down End Up Up Up F2
write 300
keys Return
write 300
keys Return
write 399
keys Return Escape F9
host_ends_with "Init: Boolean True" "shown" "end"
rows "SELECT * FROM Nummernkreis_Buchungskreise WHERE Buchungskreis>2" "77|Vom Host|ORC"
rows "SELECT * FROM Nummernkreise WHERE NSchl='RP' AND Buchungskreis=0" \
  "0|RP|Proforma|300|300|399|-1|99999999|RE|"
rows "SELECT Aktiviert FROM Nummernkreis_Sonderkreise" -1
