#!/usr/bin/env bash
# Tests the library for hosts in C++ and Qt on Windows: builds and installs it, builds the examples against
# what is installed, and works with them under Wine, on a display of their own. Prints a line per check.
#
#   tools/windows/test-shared.sh
#
# 64 bits only. Takes about two minutes once library and Qt are built (tools/windows/build.sh --shared).
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
if [ $# -ne 0 ]; then
  sed -n '2,7s/^# \{0,1\}//p' "$root/tools/windows/test-shared.sh" >&2
  exit 2
fi
"$root/tools/install-packages.sh" windows-test
work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-shared-XXXXXX")
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
app=$work/app

fail() {
  echo "FAILED: $*"
  exit 1
}

# quietly COMMAND...: shows what it prints only when it fails.
quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log" && fail "$*"; }; }

# exports DLL: what leaves it, in the words of the lists in src/component.
exports() {
  x86_64-w64-mingw32-objdump -p "$1" | sed -n '/^\[Ordinal\/Name Pointer\]/,/^$/s/^\t\[ *[0-9]*\] //p' |
    x86_64-w64-mingw32-c++filt | sizes | sort -u
}
# Sizes are of another integer type than on Linux.
sizes() { sed 's/unsigned long long/unsigned long/g'; }

# needs FILE: the libraries that it is linked with, a line each.
needs() { x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/^\tDLL Name: //p'; }

check_files() {
  local name dll version
  version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
  for name in vexnumkr vexnumkr-numbers; do
    dll=$prefix/bin/lib$name-${version%%.*}.dll
    diff <(sed 's/^T //; s/@@.*//' "$root/src/component/$name.symbols" | sizes | sort -u) \
      <(exports "$dll") || fail "$name exports something else than its list"
    strings -el "$dll" | grep -xF "$version" >"$work/log" || fail "$name does not tell its version"
    ! grep -qF "$root" "$dll" || fail "$name names the folder it was built in"
  done
  [ "$(find "$prefix/bin" -type f | wc -l)" -eq 2 ] || fail "there are other programs and libraries"
  ! needs "$prefix/bin/libvexnumkr-numbers-2.dll" | grep -E 'Qt6(Gui|Widgets)' ||
    fail "who only draws numbers needs what shows windows"
  ! grep -rqF -e "$root" -e "$qt" "$prefix/lib" || fail "the package names folders of this machine"
  echo "ok  what is installed"
}

# example FOLDER PROGRAM: builds the project against what is installed, as somebody else's.
example() {
  cp -r "$1" "$work/$2"
  quietly cmake -G Ninja -S "$work/$2" -B "$work/$2/build" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$root/tools/windows/mingw-shared.cmake" -DQT_HOST_PATH=/usr \
    -DCMAKE_PREFIX_PATH="$prefix;$qt"
  quietly cmake --build "$work/$2/build"
  cp "$work/$2/build/$2.exe" "$app"
}

# What a host gives its users: its program, the library, its own Qt and the compiler's runtime.
deploy() {
  mkdir -p "$app/platforms" "$app/sqldrivers"
  example "$root/examples/embed" vexnumkr-embed-example
  example "$root/examples/run-time" vexnumkr-run-time-example
  example "$root/tests/install/numbers" numbers
  local dll
  for dll in libgcc_s_seh-1 libstdc++-6 libwinpthread-1; do
    cp "$(x86_64-w64-mingw32-g++-posix -print-file-name=$dll.dll)" "$app"
  done
  cp "$prefix/bin"/*.dll "$qt"/bin/Qt6{Core,Gui,Widgets,Sql}.dll "$app"
  cp "$qt/plugins/platforms/qwindows.dll" "$app/platforms"
  cp "$qt/plugins/sqldrivers/qsqlite.dll" "$app/sqldrivers"
  ! needs "$app/vexnumkr-run-time-example.exe" | grep -E 'Qt|vexnumkr' ||
    fail "the host without Qt is linked with more"
  echo "ok  examples built against it"
}

"$root/tools/windows/build.sh" --shared >"$work/log" 2>&1 || { cat "$work/log" && fail "build.sh"; }
qt=$("$root/tools/windows/qt.sh" --where --shared)
# What is installed can be moved, so it is.
quietly cmake --install "$root/build/windows-shared-x86_64" --prefix "$work/first"
mv "$work/first" "$prefix"
check_files
deploy
"$root/tests/install/windows/hosts.sh" "$app"
