#!/usr/bin/env bash
# Builds VEXNumKr.dll for Windows and tests it under Wine, on a display of its own; the last thing it
# prints is ctest's summary. Needs Debian.
#
#   tools/windows/test.sh [--arch x86_64|i686]
#
# For 32 bits root rights are needed (tools/windows/wine-i386.sh says why).
set -euo pipefail

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
usage() { sed -n '2,7s/^# \{0,1\}//p' "$tools/test.sh"; }

# shellcheck source=architecture.sh
. "$tools/architecture.sh"

"$tools/../install-packages.sh" windows-test
# shellcheck source=wine.sh
. "$tools/wine.sh"
BUILD_TESTING=ON "$tools/build.sh" --arch "$arch"
cd "$tools/../.."
ctest --test-dir "build/windows-$arch" --output-on-failure --output-junit tests.xml
