#!/usr/bin/env bash
# Makes the archive for Windows and the installer of what tools/windows/build.sh has built.
#
#   tools/windows/package.sh [--arch x86_64|i686]
#
# They are dist/VEXNumKr-VERSION-ARCH.zip and .msi then; takes about half a minute. The same library gives
# the same archive. VEXNUMKR_WINDOWS_LIBRARY names another library file, with its type library beside it,
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
qt_source=$(dpkg-query -W -f '${source:Version}' "libqt6core6:$(dpkg --print-architecture)")
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

# text FILE: what is written @LIKE_THIS@ in it, filled in; the line ends are those of Windows.
text() {
  sed -e "s/@VERSION@/$version/g; s/@ARCH@/$arch/g; s/@BITS@/$bits/g; s/@QT_SOURCE@/$qt_source/g" \
    -e 's/$/\r/' "$1"
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

add_manuals() {
  local manual
  cp -r "$root/docs/bilder" "$folder/handbuch"
  for manual in handbuch datenbank windows; do
    "$root/packaging/documentation/make.sh" "$root/docs/$manual.md" "$folder/handbuch"
  done
}

add_licences() {
  local licences=$folder/lizenzen
  with_mark "$root/LICENSE" >"$licences/LICENSE.txt"
  with_mark "$packaging/HINWEISE.txt" >"$licences/HINWEISE.txt"
  text /usr/share/common-licenses/LGPL-3 >"$licences/LGPL-3.txt"
  text /usr/share/common-licenses/GPL-3 >"$licences/GPL-3.txt"
  with_mark /usr/share/doc/libqt6core6/copyright >"$licences/qt6-base.txt"
  with_mark /usr/share/doc/gcc-mingw-w64-base/copyright >"$licences/gcc.txt"
  with_mark /usr/share/doc/mingw-w64-common/copyright >"$licences/mingw-w64.txt"
}

add_sources() {
  "$root/tools/debian/export.sh" "$work/vexnumkr-$version"
  tar -C "$work" --sort=name --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" \
    --format=gnu -cJf "$folder/quelltext/vexnumkr-$version.tar.xz" "vexnumkr-$version"
}

make_archive() {
  "$root/tools/windows/spdx.sh" "$folder" "$version" "$arch" "$qt_source" >"$work/spdx.json"
  mv "$work/spdx.json" "$folder/lizenzen/VEXNumKr.spdx.json"
  find "$folder" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
  rm -f "$dist/$name.zip"
  (cd "$work" && find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -q -X -9 "$dist/$name.zip" -@)
}

# An identifier that is the same for the same text: id TEXT.
id() { uuidgen --sha1 --namespace @dns --name "vexnumkr $1" | tr '[:lower:]' '[:upper:]'; }

make_installer() {
  local program_files=ProgramFilesFolder win64=no wixl_arch=x86
  if [ "$bits" = 64 ]; then
    program_files=ProgramFiles64Folder win64=yes wixl_arch=x64
  fi
  cp "$packaging/VEXNumKr.wxs" "$folder/VEXNumKr.dll" "$work"
  (cd "$work" && wixl --arch "$wixl_arch" -D Version="$version" -D Bits="$bits" -D Win64="$win64" \
    -D ProgramFiles="$program_files" -D ProductCode="$(id "product $version $arch")" \
    -D UpgradeCode="$(id "upgrade $arch")" -D LibraryGuid="$(id "library $arch")" \
    -o "$dist/$name.msi" VEXNumKr.wxs)
}

add_programs
add_manuals
add_licences
add_sources
make_archive
make_installer
ls -l "$dist/$name".*
