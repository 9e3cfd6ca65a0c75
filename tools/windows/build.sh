#!/usr/bin/env bash
# Builds VEXNumKr.dll for Windows, on Debian. The first call builds Qt too, which takes long; later
# ones find it in a cache (tools/windows/qt.sh).
#
#   tools/windows/build.sh [--arch x86_64|i686]
#   tools/windows/build.sh --shared
#
# The library is build/windows-ARCH/bin/VEXNumKr.dll then. With BUILD_TESTING=ON in the environment the
# tests are built too. With --shared it is that for hosts in C++ and Qt, of 64 bits, and "cmake --install
# build/windows-shared-x86_64 --prefix FOLDER" makes a package of it.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
usage() { sed -n '2,11s/^# \{0,1\}//p' "$root/tools/windows/build.sh"; }

kind=
if [ "${1:-}" = --shared ] && [ $# -eq 1 ]; then
  kind=--shared
  shift
fi
# shellcheck source=architecture.sh
. "$root/tools/windows/architecture.sh"

"$root/tools/install-packages.sh" windows
qt=$("$root/tools/windows/qt.sh" $kind --arch "$arch" | tee /dev/stderr | tail -n 1)
preset=windows${kind#-}-$arch

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cd "$root"
cmake --preset "$preset" -DCMAKE_PREFIX_PATH="$qt" -DBUILD_TESTING="${BUILD_TESTING:-OFF}" "${launcher[@]}"
cmake --build --preset "$preset"
ls -l "build/$preset/bin"/*.dll
