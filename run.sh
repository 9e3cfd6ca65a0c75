#!/usr/bin/env bash
# Baut das Programm vexnumkr-host und öffnet seinen Dialog, wenn nichts anderes verlangt ist auf der
# Datenbank einer Beispielfirma. Ohne Anzeige führt es den Dialog stattdessen selbst vor.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
host=$root/build/release/bin/vexnumkr-host
sample_folder=${XDG_DATA_HOME:-${HOME:-/tmp}/.local/share}/vexnumkr
sample=$sample_folder/beispielfirma.db

say() { echo "run.sh: $*"; }

help() {
  cat <<TEXT
Aufruf: ./run.sh [Optionen]

Installiert, was zum Bauen fehlt (Debian), baut das Programm und öffnet den Dialog "Nummernkreise".
Ohne Optionen geschieht das als Anwendung 1, Benutzer Hoffmann, auf der Beispielfirma in
  $sample
die beim ersten Mal angelegt wird. Ohne Anzeige wird der Dialog auf einer Kopie davon vorgeführt.

Die Optionen gehen an das Programm weiter:

TEXT
  cat "$root/src/app/help.txt"
}

# Whether one of the options named is among the arguments: given OPTION... -- ARGUMENT...
given() {
  local options=() argument option
  while [ "$1" != -- ]; do
    options+=("$1")
    shift
  done
  shift
  for argument in "$@"; do
    for option in "${options[@]}"; do
      case "$argument" in "$option" | "$option"=*) return 0 ;; esac
    done
  done
  return 1
}

build() {
  "$root/tools/install-packages.sh" run
  say "baue build/release"
  local launcher=()
  if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
  (
    cd "$root"
    cmake --preset release -DBUILD_TESTING=OFF "${launcher[@]}" >/dev/null
    cmake --build --preset release --target vexnumkr-host
  )
}

make_sample() {
  [ -e "$sample" ] && return
  mkdir -p "$sample_folder"
  "$host" --create-sample "$sample"
}

has_display() { [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; }

if given --help -h -- "$@"; then
  help
  exit 0
fi
build
if given --version -- "$@" || { given --create-sample -- "$@" && [ $# -le 2 ]; }; then
  exec "$host" "$@"
fi

arguments=("$@")
given --application -- "$@" || arguments+=(--application 1)
given --user -- "$@" || arguments+=(--user Hoffmann)

touring=
given --tour -- "$@" && touring=yes
if [ -z "$touring" ] && ! has_display; then
  touring=yes
  pictures=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-rundgang-XXXXXX")
  arguments+=(--tour "$pictures")
  say "keine Anzeige (DISPLAY und WAYLAND_DISPLAY sind leer): Rundgang, Bilder in $pictures"
fi
if [ -n "$touring" ] && ! has_display; then
  # The platform without a display says at every window what it cannot do.
  export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES="default.warning=false"
fi

if ! given --connection --connection-file --create-sample -- "$@" &&
  [ -z "${VEXNUMKR_CONNECTION:-}" ]; then
  make_sample
  database=$sample
  if [ -n "$touring" ]; then
    copy=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-kopie-XXXXXX")
    trap 'rm -rf "$copy"' EXIT
    database=$copy/beispielfirma.db
    cp "$sample" "$database"
  fi
  arguments+=(--connection "Driver=QSQLITE;Database=\"$database\"")
fi

"$host" "${arguments[@]}"
