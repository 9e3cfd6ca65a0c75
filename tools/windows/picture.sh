#!/usr/bin/env bash
# Makes the picture of the dialog under Wine, docs/bilder/windows.png, anew. Needs ImageMagick, the
# stand-alone host in build/release, and what tools/windows/test.sh has built.
#
#   tools/windows/picture.sh
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
tests=$root/build/windows-x86_64/tests
world=$tests/picture-world
"$root/tests/automation/wine/world.sh" start "$world" "$tests/vexnumkr-standins.dll" \
  "$root/build/windows-x86_64/bin/VEXNumKr.dll"
end() { "$root/tests/automation/wine/world.sh" stop "$world"; }

# shellcheck source=../../tests/automation/wine/steps.sh
. "$root/tests/automation/wine/steps.sh" "$world"
trap 'leave; end' EXIT

QT_QPA_PLATFORM=offscreen "$root/build/release/bin/vexnumkr-host" --create-sample "$database"
host numbers.vbs "$connection" 2 Becker 20261115
window Nummernkreise
keys Down Down Down F2
is_painted() {
  import -window root "$folder/screen.png"
  # The open cell is marked in the colour of selections.
  [ "$(convert "$folder/screen.png" -fill black +opaque '#2678c8' -format '%[fx:mean>0]' info:)" = 1 ]
}
until_true "the cell was open" is_painted
convert "$folder/screen.png" -trim +repage "$root/docs/bilder/windows.png"
keys Escape Escape
host_ends_with "Init: Boolean True" "shown" "end"
