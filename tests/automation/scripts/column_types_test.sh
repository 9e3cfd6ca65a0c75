#!/usr/bin/env bash
# Real providers deliver columns in types of their own: small and large integers, decimals, floating
# point numbers, Booleans. The dialog shows and saves the same.
. "$(dirname "$0")/../wine/steps.sh" "$1"

# VT_I2, VT_DECIMAL, VT_R8, VT_I8, VT_BOOL, VT_CY
export VEXNUMKR_COLUMN_TYPES="Buchungskreis=2;StartWert=14;AktuellerWert=5;EndWert=20;Aktiviert=11;\
SortierIndex=6"
make_database
host numbers.vbs "$connection" 2 Anna
window Nummernkreise
keys Down Down Down F2 Return Return
write 150
keys Return Escape F9
host_ends_with "Init: Boolean True" "shown" "end"
rows "SELECT * FROM Nummernkreise WHERE Buchungskreis<2 ORDER BY NSchl, Buchungskreis" \
  "0|AN|Angebot|1|1|99|-1|10||" \
  "1|AN|Angebot|100|120|150|-1|10||JNN" \
  "0|RE|Rechnung|1|5|99|-1|20||" \
  "1|RE|Rechnung|100|100|199|-1|20||"
