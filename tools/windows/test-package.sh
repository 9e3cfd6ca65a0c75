#!/usr/bin/env bash
# Tests the archive for Windows and the installer: what they hold, and under Wine that they register what
# regsvr32 registers, repair it, and leave nothing behind.
#
#   tools/windows/test-package.sh [--arch x86_64|i686]
#
# The library of build/windows-ARCH is packed where it is there; otherwise a small one takes its place that
# registers as it does. Takes about two minutes. For 32 bits root rights are needed (tools/windows/wine-i386.sh
# says why).
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
usage() { sed -n '2,9s/^# \{0,1\}//p' "$root/tools/windows/test-package.sh"; }
# shellcheck source=architecture.sh
. "$root/tools/windows/architecture.sh"
"$root/tools/install-packages.sh" windows-test
"$root/tools/install-packages.sh" windows-package
# shellcheck source=wine.sh
. "$root/tools/windows/wine.sh"

work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-installer-XXXXXX")
export WINEPREFIX=$work/wine WINEDEBUG=-all DISPLAY=''
case "$arch" in
  x86_64) export WINEARCH=win64 ;;
  i686) export WINEARCH=win32 ;;
esac
# Wine looks for a browser and for a .NET at its first start.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe='
leave() {
  wineserver -k >/dev/null 2>&1 || true
  rm -rf "$work"
}
trap leave EXIT

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# The library, or what registers like it.
library=$root/build/windows-$arch/bin/VEXNumKr.dll
if [ ! -e "$library" ]; then
  echo "There is no VEXNumKr.dll; a library that only registers takes its place."
  library=$work/VEXNumKr.dll
  "$arch-w64-mingw32-g++-posix" -std=c++20 -shared -static -s -o "$library" -I "$root/src" \
    "$root/tests/automation/installer/registering_library.cpp" \
    "$root/src/windows/registration.cpp" "$root/src/windows/registry_key.cpp" \
    -Wl,--exclude-all-symbols "$root/tests/automation/installer/registering_library.def" -lole32 -luuid
  echo "no type library" >"$work/VEXNumKr.tlb"
fi
export VEXNUMKR_WINDOWS_LIBRARY=$library VEXNUMKR_DIST=$work/dist
"$root/tools/windows/package.sh" --arch "$arch" >"$work/log" 2>&1 || { cat "$work/log" && fail "package.sh"; }
name=$(basename "$work"/dist/*.zip .zip)

# The same library gives the same files, whenever, wherever and by whom they are made.
mv "$work/dist/$name.zip" "$work/first.zip"
mv "$work/dist/$name.msi" "$work/first.msi"
mkdir "$work/elsewhere"
(umask 077 && TZ=Asia/Tokyo TMPDIR=$work/elsewhere "$root/tools/windows/package.sh" --arch "$arch" >"$work/log" 2>&1)
cmp "$work/first.zip" "$work/dist/$name.zip" || fail "the archive differs from the one before"
cmp "$work/first.msi" "$work/dist/$name.msi" || fail "the installer differs from the one before"
echo "ok  archive and installer are the same twice"

(cd "$work" && unzip -q first.zip)
folder=$work/$name
for file in VEXNumKr.dll VEXNumKr.tlb anmelden.cmd abmelden.cmd selftest.vbs LIESMICH.txt \
  handbuch/handbuch.pdf handbuch/windows.html lizenzen/LGPL-3.txt lizenzen/VEXNumKr.spdx.json \
  quelltext/vexnumkr-*.tar.xz; do
  compgen -G "$folder/$file" >/dev/null || fail "$file is missing"
done
grep -rl '@[A-Z]*@' "$folder" --include=*.cmd --include=*.txt && fail "something is not filled in"
check_spdx() {
  jq -e '.spdxVersion == "SPDX-2.3" and (.packages | length > 10)
    and all(.files[]; .checksums | length == 2)' "$1/lizenzen/VEXNumKr.spdx.json" >/dev/null ||
    fail "the SPDX document"
  jq -r '.files[] | [.checksums[1].checksumValue, .fileName] | join("  ")' \
    "$1/lizenzen/VEXNumKr.spdx.json" | (cd "$1" && sha256sum --quiet -c -) ||
    fail "the SPDX document's checksums"
}

# check_links FOLDER: what its pages lead to and show is there.
check_links() {
  local page target
  for page in "$1"/*.html; do
    for target in $(grep -oE '(href|src)="[^"#]+' "$page" | cut -d'"' -f2 | grep -v '^[a-z]*:'); do
      [ -e "$1/$target" ] || fail "$(basename "$page") leads to $target, which is missing"
    done
  done
}

check_spdx "$folder"
check_links "$folder/handbuch"
echo "ok  what the archive holds"

# What is registered for the machine, without what the installer notes for itself. Folders are written
# with or without a backslash at their end.
registered() {
  wine reg export 'HKLM\Software\Classes' "Z:${work//\//\\}\\classes.reg" /y >/dev/null 2>&1
  iconv -f UTF-16 -t UTF-8 "$work/classes.reg" | tr -d '\r' | sed 's/\(Nummernkreise\)\\\\"$/\1"/' |
    awk 'BEGIN { RS = ""; ORS = "\n\n" } !/^\[HKEY_LOCAL_MACHINE\\Software\\Classes\\Installer/' >"$1"
}

# same FILE WHAT: what is registered now is as in FILE.
same() {
  registered "$work/now"
  diff "$work/$1" "$work/now" || fail "$2"
  echo "ok  $2"
}

installed=$WINEPREFIX'/drive_c/Program Files/Vexal Nummernkreise'
msi="Z:${work//\//\\}\\dist\\$name.msi"
wineboot --init >/dev/null 2>&1
registered "$work/before"

wine msiexec /qn /i "$msi" || fail "msiexec /i ends with $?"
cmp "$library" "$installed/VEXNumKr.dll" || fail "the library is not installed"
for text in LICENSE.txt HINWEISE.txt LGPL-3.txt GPL-3.txt qt6-base.txt qt-weitere.txt; do
  [ -s "$installed/lizenzen/$text" ] || fail "$text is not installed"
done
grep -q "Archiv $name.zip" "$installed/lizenzen/HINWEISE.txt" || fail "where the sources are is not told"
check_spdx "$installed"
check_links "$installed/handbuch"
echo "ok  what is installed"
registered "$work/by-installer"
wine msiexec /qn /x "$msi" || fail "msiexec /x ends with $?"
[ ! -e "$installed" ] || fail "files are left: $(ls "$installed")"
same before "removing leaves nothing behind"

mkdir -p "$installed"
cp "$library" "$folder"/*.cmd "$installed"
wine cmd /c 'C:\Program Files\Vexal Nummernkreise\anmelden.cmd' >"$work/said" || fail "anmelden.cmd"
grep -q 'ist angemeldet' "$work/said"
same by-installer "the installer registers what anmelden.cmd registers"
wine cmd /c 'C:\Program Files\Vexal Nummernkreise\abmelden.cmd' >"$work/said" || fail "abmelden.cmd"
same before "abmelden.cmd leaves nothing behind"
rm -r "$installed"

wine msiexec /qn /i "$msi"
wine reg delete 'HKLM\Software\Classes\CLSID\{1799D539-16B2-4FA4-9CE5-48A27AE28092}' /f >/dev/null
rm "$installed/VEXNumKr.dll"
wine msiexec /qn /i "$msi" REINSTALL=ALL REINSTALLMODE=omus || fail "repairing ends with $?"
cmp "$library" "$installed/VEXNumKr.dll" || fail "repairing does not bring the library back"
same by-installer "repairing brings back what was lost"
wine msiexec /qn /x "$msi"
same before "and it can be removed then"
