#!/usr/bin/env bash
# The masks are filled from the date that the host hands over, and from today's where it hands over
# none.
. "$(dirname "$0")/../wine/steps.sh" "$1"

# number_automatically [DATE]: lets a host's user number by the mask JNN and save.
number_automatically() {
  rm -f "$database"
  make_database
  host numbers.vbs "$connection" 2 Anna "$@"
  window Nummernkreise
  keys alt+a
  box Abfrage j "Diese Option startet eine automatische Nummernvergabe nach Maske." \
    "Alle bisherigen Nummern werden hiermit überschrieben!" "" "Möchten Sie trotzdem fortfahren?"
  window Nummernkreise
  keys F9
  host_ends_with "Init: Boolean True" "shown" "end"
}

mask_row="SELECT StartWert, AktuellerWert, EndWert FROM Nummernkreise WHERE Maske='JNN'"
# Another year's digit than today's.
year=$(date +%Y)
other=$(((year + 5) % 10))
number_automatically "$((year + 5))0315"
rows "$mask_row" "${other}00|${other}00|${other}99"
number_automatically
digit=$((year % 10))
[ "$(date +%Y)" = "$year" ] || fail "the year has changed meanwhile"
rows "$mask_row" "$((digit * 100))|$((digit * 100))|$((digit * 100 + 99))"
