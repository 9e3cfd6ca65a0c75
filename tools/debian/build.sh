#!/usr/bin/env bash
# Builds the Debian packages from the files of this checkout that git knows, as they are now.
#
#   tools/debian/build.sh [FOLDER]
#
# The packages are in FOLDER then, dist/debian unless given. Installs what is missing for it; takes about
# five minutes on two cores. Building again, wherever and whenever, gives the same packages.
set -euo pipefail

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
case "${1:-}" in
  --help | -h)
    sed -n '2,7s/^# \{0,1\}//p' "$tools/build.sh"
    exit 0
    ;;
esac
folder=${1:-$tools/../../dist/debian}

"$tools/../install-packages.sh" package
work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-debian-XXXXXX")
trap 'rm -rf "$work"' EXIT
"$tools/export.sh" "$work/vexnumkr"
(cd "$work/vexnumkr" && dpkg-buildpackage --no-sign --build=full)

mkdir -p "$folder"
rm -f "$folder"/*vexnumkr*_*
mv "$work"/*vexnumkr*_* "$folder"
ls -l "$folder"
