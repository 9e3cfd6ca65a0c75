#!/usr/bin/env bash
# Builds VEXNumKr.dll for Windows, on Debian. The first call builds Qt too, which takes long; later
# ones find it in a cache (tools/windows/qt.sh).
#
#   tools/windows/build.sh [--arch x86_64|i686]
#
# The library is build/windows-ARCH/bin/VEXNumKr.dll then. With BUILD_TESTING=ON in the environment the
# tests are built too.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
usage() { sed -n '2,8s/^# \{0,1\}//p' "$root/tools/windows/build.sh"; }

# shellcheck source=architecture.sh
. "$root/tools/windows/architecture.sh"

"$root/tools/install-packages.sh" windows
qt=$("$root/tools/windows/qt.sh" --arch "$arch" | tee /dev/stderr | tail -n 1)

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cd "$root"
cmake --preset "windows-$arch" -DCMAKE_PREFIX_PATH="$qt" -DBUILD_TESTING="${BUILD_TESTING:-OFF}" "${launcher[@]}"
cmake --build --preset "windows-$arch"
ls -l "build/windows-$arch/bin/VEXNumKr.dll"
