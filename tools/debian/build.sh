#!/usr/bin/env bash
# Builds the Debian packages from the files of this checkout that git knows, as they are now.
#
#   tools/debian/build.sh [FOLDER]
#
# The packages are in FOLDER then, dist/debian unless given. Installs what is missing for it; takes about
# five minutes on two cores. Building again, wherever and whenever, gives the same packages. Those with
# debugging symbols are not made unless DEB_BUILD_OPTIONS is set to what shall hold instead (to nothing, say).
set -euo pipefail

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
usage() { sed -n '2,8s/^# \{0,1\}//p' "$tools/build.sh"; }
case "$#:${1:-}" in
  0:) ;;
  1:--help | 1:-h)
    usage
    exit 0
    ;;
  1: | 1:-* | [!1]:*)
    usage >&2
    exit 2
    ;;
esac
folder=${1:-$tools/../../dist/debian}
export DEB_BUILD_OPTIONS=${DEB_BUILD_OPTIONS-noautodbgsym}

"$tools/../install-packages.sh" package
work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-debian-XXXXXX")
trap 'rm -rf "$work"' EXIT
"$tools/export.sh" "$work/vexnumkr"
(cd "$work/vexnumkr" && dpkg-buildpackage --no-sign --build=full)

mkdir -p "$folder"
rm -f "$folder"/*vexnumkr*_*
mv "$work"/*vexnumkr*_* "$folder"
ls -l "$folder"
