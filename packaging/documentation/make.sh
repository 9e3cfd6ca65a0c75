#!/usr/bin/env bash
# Makes a manual into a page for a browser and one for paper: FOLDER/NAME.html, FOLDER/NAME.pdf. The
# pictures are expected in FOLDER/bilder.
#
#   make.sh MANUAL.md FOLDER
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
name=$(basename "$1" .md)
page() { pandoc --from gfm --to html5 --standalone --metadata lang=de --lua-filter "$here/links.lua" "$@"; }

page --css manual.css --output "$2/$name.html" "$1"
# Manuals are made side by side; none finds half of this.
cp "$here/manual.css" "$2/$name.css"
mv "$2/$name.css" "$2/manual.css"

# The pages for paper are made of one text without paths, since those would find their way into them.
export VEXNUMKR_ON_PAPER=yes
page --css "$here/manual.css" --self-contained --resource-path "$2" "$1" |
  weasyprint --quiet - "$2/$name.pdf"
