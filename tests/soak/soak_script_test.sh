#!/usr/bin/env bash
# tools/soak.sh fails when what it runs fails, however that ends and whatever of its output is shown.
#
#   soak_script_test.sh PROJECT
set -euo pipefail

work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-soak-XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/tools" "$work/programs" "$work/build/dev/tests"
cp "$1/tools/soak.sh" "$work/tools"
# Nothing is built here.
printf '#!/bin/sh\n' >"$work/programs/cmake"
chmod +x "$work/programs/cmake"

# program TEXT...: what the script runs, in the words of a shell.
program() {
  printf '#!/bin/sh\n%s\n' "$*" >"$work/build/dev/tests/openings_test"
  chmod +x "$work/build/dev/tests/openings_test"
}
soak() { PATH=$work/programs:$PATH "$work/tools/soak.sh" --minutes 0 >"$work/said" 2>&1; }
failed() {
  echo "FAILED: $*"
  cat "$work/said"
  exit 1
}

program 'echo "1000 openings"'
soak || failed "a run without a finding fails"
grep -qx 'No finding.' "$work/said" || failed "it does not say that there is none"
for finding in 'echo "a.cpp:1: Failure"; exit 1' 'echo "[  FAILED  ] one"; exit 1' 'kill -ABRT $$'; do
  program "$finding"
  ! soak || failed "a finding is not one: $finding"
  ! grep -q 'No finding' "$work/said" || failed "it says that there is none: $finding"
done
echo "ok"
