#!/usr/bin/env bash
# Builds VEXNumKr.dll for Windows, on Debian. The first call builds Qt too, which takes long; later
# ones find it in a cache (tools/windows/qt.sh).
#
#   tools/windows/build.sh [--arch x86_64|i686]
#
# The library is build/windows-ARCH/bin/VEXNumKr.dll then.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
usage() { sed -n '2,7s/^# \{0,1\}//p' "$root/tools/windows/build.sh"; }

arch=x86_64
case "$#:${1:-}" in
  0:) ;;
  2:--arch) arch=$2 ;;
  1:--help | 1:-h)
    usage
    exit 0
    ;;
  *) arch= ;;
esac
case "$arch" in
  x86_64 | i686) ;;
  *)
    usage >&2
    exit 2
    ;;
esac

"$root/tools/install-packages.sh" windows
qt=$("$root/tools/windows/qt.sh" --arch "$arch" | tee /dev/stderr | tail -n 1)

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cd "$root"
cmake --preset "windows-$arch" -DCMAKE_PREFIX_PATH="$qt" -DBUILD_TESTING=OFF "${launcher[@]}"
cmake --build --preset "windows-$arch"
ls -l "build/windows-$arch/bin/VEXNumKr.dll"
