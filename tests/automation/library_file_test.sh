#!/usr/bin/env bash
# The library file itself: what makes faults in it harder to exploit, and nothing of where and when it was
# built.
#
#   library_file_test.sh LIBRARY OBJDUMP BITS SOURCES
set -euo pipefail
library=$1 objdump=$2 bits=$3 sources=$4

failed=0
fail() {
  echo "FAILED: $*"
  failed=1
}
headers=$("$objdump" -p "$library")
marked() { grep -qx "[[:space:]]*$1" <<<"$headers"; }

marked DYNAMIC_BASE || fail "it is always loaded to the same address"
[ "$bits" = 32 ] || marked HIGH_ENTROPY_VA || fail "its address is one of few"
marked NX_COMPAT || fail "data in it may be executed"
grep -aqF 'stack smashing detected' "$library" || fail "the stack is not protected"
grep -qE '^Time/Date[[:space:]]+Thu Jan  1 00:00:00 1970$' <<<"$headers" || fail "it tells when it was linked"
for folder in "$sources" "$HOME"; do
  ! grep -aqF "$folder/" "$library" || fail "it names a folder of this machine: $folder"
done
exit "$failed"
