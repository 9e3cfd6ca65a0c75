#!/usr/bin/env bash
# Makes the pictures of the main dialog in docs/bilder anew, from guided tours through a sample
# company. Needs the release build of the host, which ./run.sh makes too.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
host=$root/build/release/bin/vexnumkr-host
target=$root/docs/bilder
work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-bilder-XXXXXX")
trap 'rm -rf "$work"' EXIT

# Drawn without a display, so that they come out alike on every machine that has the fonts.
# The screen has room for the dialog at 150 % too.
export QT_QPA_PLATFORM="offscreen:configfile=$root/tests/support/large_screen.json" QT_LOGGING_RULES="default.warning=false"
unset QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME

"$host" --create-sample "$work/firma.db" >/dev/null

# tour NAME SCALE [OPTION...]: a tour's pictures in $work/NAME, nothing of it stored.
tour() {
  local name=$1 scale=$2
  shift 2
  QT_SCALE_FACTOR=$scale "$host" --connection "Driver=QSQLITE;Database=\"$work/firma.db\"" \
    --user Hoffmann --date 20261121 --tour "$work/$name" "$@" >/dev/null
}

# picture TOUR STEP NAME: the picture of a step, whatever its number, as docs/bilder/NAME.png.
picture() {
  cp "$work/$1"/[0-9][0-9]-"$2.png" "$target/$3.png"
}

tour one 1 --application 1
tour two 1 --application 2
tour dark 1 --application 2 --dark
tour large 1.5 --application 1

picture one dialog dialog-anwendung-1
picture two dialog dialog-anwendung-2
picture one benutzer-wahl benutzer
picture dark eingabe dialog-dunkel
picture large eingabe dialog-150-prozent
