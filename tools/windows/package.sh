#!/usr/bin/env bash
# Makes the archive for Windows and the installer of what tools/windows/build.sh has built.
#
#   tools/windows/package.sh [--arch x86_64|i686]
#
# They are dist/VEXNumKr-VERSION-ARCH.zip and .msi then; takes about half a minute. The same library gives
# the same files. VEXNUMKR_WINDOWS_LIBRARY names another library file, with its type library beside it,
# and VEXNUMKR_DIST another folder for the results.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
usage() { sed -n '2,8s/^# \{0,1\}//p' "$root/tools/windows/package.sh"; }
# shellcheck source=architecture.sh
. "$root/tools/windows/architecture.sh"

library=${VEXNUMKR_WINDOWS_LIBRARY:-$root/build/windows-$arch/bin/VEXNumKr.dll}
type_library=$(dirname "$library")/VEXNumKr.tlb
[ -e "$type_library" ] || type_library=$root/build/windows-$arch/src/windows/VEXNumKr.tlb
for file in "$library" "$type_library"; do
  if [ ! -e "$file" ]; then
    echo "There is no $file; tools/windows/build.sh --arch $arch builds it." >&2
    exit 1
  fi
done
"$root/tools/install-packages.sh" windows-package

packaging=$root/packaging/windows
dist=${VEXNUMKR_DIST:-$root/dist}
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
name=VEXNumKr-$version-$arch
case "$arch" in
  x86_64) bits=64 ;;
  i686) bits=32 ;;
esac
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$root/debian/changelog" -S Timestamp)
export SOURCE_DATE_EPOCH LC_ALL=C.UTF-8

work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-windows-XXXXXX")
trap 'rm -rf "$work"' EXIT
folder=$work/$name
mkdir -p "$folder"/{handbuch,lizenzen,quelltext} "$dist"
dist=$(cd "$dist" && pwd)

# Sets qt_source and qt_notices, the version of the Qt inside and whose work that is: as the Qt says that the
# library was built with, or, where it does not, as the one that is installed here does.
find_qt() {
  local cache=$root/build/windows-$arch/CMakeCache.txt place package
  if [ "$library" -ef "$root/build/windows-$arch/bin/VEXNumKr.dll" ]; then
    for place in $(sed -n 's/^CMAKE_PREFIX_PATH:[A-Z]*=//p' "$cache" | tr ';' ' '); do
      if [ -e "$place/source-version" ]; then
        qt_source=$(cat "$place/source-version") qt_notices=$place/copyright
        return
      fi
    done
  fi
  for package in libqt6core6t64 libqt6core6; do
    qt_notices=/usr/share/doc/$package/copyright
    [ ! -e "$qt_notices" ] || break
  done
  qt_source=$(dpkg-query -W -f '${source:Version}' "$package:$(dpkg --print-architecture)")
  echo "The Qt of the library does not say what it was built from; taking it for qt6-base $qt_source." >&2
}

# text FILE: what is written @LIKE_THIS@ in it, filled in; the line ends are those of Windows.
text() {
  sed -e "s/@VERSION@/$version/g; s/@ARCH@/$arch/g; s/@BITS@/$bits/g; s/@QT_SOURCE@/$qt_source/g" \
    -e "s/@SOURCES@/$sources/g" -e 's/$/\r/' "$1"
}

# with_mark FILE: the same, marked as UTF-8.
with_mark() {
  printf '\xef\xbb\xbf'
  text "$1"
}

add_programs() {
  cp "$library" "$folder/VEXNumKr.dll"
  cp "$type_library" "$folder/VEXNumKr.tlb"
  cp "$root/tools/windows/selftest.vbs" "$folder"
  text "$packaging/anmelden.cmd" >"$folder/anmelden.cmd"
  text "$packaging/abmelden.cmd" >"$folder/abmelden.cmd"
  with_mark "$packaging/LIESMICH.txt" >"$folder/LIESMICH.txt"
}

# The manuals, with those that they lead to.
add_manuals() {
  local manual
  mkdir "$folder/handbuch/bilder"
  cp -r "$root/docs/bilder"/{handbuch,windows.png} "$folder/handbuch/bilder"
  for manual in handbuch datenbank cluster verwaltung json windows; do
    "$root/packaging/documentation/make.sh" "$root/docs/$manual.md" "$folder/handbuch"
  done
}

# add_licences FOLDER SOURCES: where the sources are, in words.
add_licences() {
  local licences=$1/lizenzen sources=$2
  with_mark "$root/LICENSE" >"$licences/LICENSE.txt"
  with_mark "$packaging/HINWEISE.txt" >"$licences/HINWEISE.txt"
  text /usr/share/common-licenses/LGPL-3 >"$licences/LGPL-3.txt"
  text /usr/share/common-licenses/GPL-3 >"$licences/GPL-3.txt"
  with_mark "$qt_notices" >"$licences/qt6-base.txt"
  with_mark "$packaging/qt-weitere.txt" >"$licences/qt-weitere.txt"
  with_mark /usr/share/doc/gcc-mingw-w64-base/copyright >"$licences/gcc.txt"
  with_mark /usr/share/doc/mingw-w64-common/copyright >"$licences/mingw-w64.txt"
}

add_sources() {
  "$root/tools/debian/export.sh" "$work/vexnumkr-$version"
  tar -C "$work" --sort=name --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" \
    --format=gnu -cJf "$folder/quelltext/vexnumkr-$version.tar.xz" "vexnumkr-$version"
}

# complete FOLDER: adds the SPDX document, and gives all of it one date and the same rights.
complete() {
  "$root/tools/windows/spdx.sh" "$1" "$version" "$arch" "$qt_source" >"$work/spdx.json"
  mv "$work/spdx.json" "$1/lizenzen/VEXNumKr.spdx.json"
  chmod -R a+rX,u+w,go-w "$1"
  find "$1" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
}

make_archive() {
  complete "$folder"
  rm -f "$dist/$name.zip"
  (cd "$work" && find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -q -X -9 "$dist/$name.zip" -@)
}

# The installer has the library, and of the texts those that are read where it is installed.
make_installer() {
  local installed=$work/installed
  mkdir -p "$installed/lizenzen"
  cp "$folder/VEXNumKr.dll" "$installed"
  cp -r "$folder/handbuch" "$installed"
  rm "$installed/handbuch"/*.pdf
  add_licences "$installed" "im Archiv $name.zip, das zu dieser Installationsdatei gehört, in $sources_file"
  complete "$installed"
  "$root/tools/windows/installer.sh" "$installed" "$version" "$arch" "$dist/$name.msi"
}

# As sed writes it.
sources_file="quelltext\\\\vexnumkr-$version.tar.xz" sources=
find_qt
add_programs
add_manuals
add_licences "$folder" "in $sources_file"
add_sources
make_archive
make_installer
ls -l "$dist/$name".*
