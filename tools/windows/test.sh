#!/usr/bin/env bash
# Builds VEXNumKr.dll for Windows and tests it under Wine, on a display of its own; the last thing it
# prints is ctest's summary. Needs Debian.
#
#   tools/windows/test.sh [--arch x86_64|i686]
set -euo pipefail

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
usage() { sed -n '2,5s/^# \{0,1\}//p' "$tools/test.sh"; }

# shellcheck source=architecture.sh
. "$tools/architecture.sh"

if [ "$arch" = i686 ] && [ "$(id -u)" -ne 0 ]; then
  echo "For 32 bits root rights are needed (tools/windows/wine-i386.sh says why)." >&2
  exit 1
fi
"$tools/../install-packages.sh" windows-test
BUILD_TESTING=ON "$tools/build.sh" --arch "$arch"
cd "$tools/../.."
if [ "$arch" = i686 ]; then
  commands=$("$tools/wine-i386.sh" | tee /dev/stderr | tail -n 1)
  PATH=$commands:$PATH
fi
ctest --test-dir "build/windows-$arch" --output-on-failure --output-junit tests.xml
