#!/usr/bin/env bash
# Attacks the built component for as long as wanted: random users, hosts that draw and open dialogs
# meanwhile, statements, commits, disks and servers that fail, hosts killed in the middle of a save, and
# a thousand openings. Prints what each run has done; fails at the first finding.
#
#   tools/soak.sh [--preset dev|release] [--minutes N] [--engine ENGINE]... [--seed N] [--kills N]
#
# --minutes  how long the random users work, shared by the engines (2); 0 leaves them out
# --engine   sqlite, postgresql or mariadb; all three where none is named
# --seed     the first seed of the random users; a new one each time where it is not given
# --kills    how many hosts are killed per engine, on SQLite in both journal modes (none)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

usage() { sed -n '6,11s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"; }

preset=dev minutes=2 kills=0 seed=$RANDOM engines=()
while [ $# -gt 0 ]; do
  case "$1" in
    --preset) preset=$2 ;;
    --minutes) minutes=$2 ;;
    --engine) engines+=("$2") ;;
    --seed) seed=$2 ;;
    --kills) kills=$2 ;;
    --help | -h)
      usage
      exit 0
      ;;
    *)
      usage >&2
      exit 2
      ;;
  esac
  shift 2
done
if [ "${#engines[@]}" -eq 0 ]; then engines=(sqlite postgresql mariadb); fi

cmake --build --preset "$preset" --target soak_test openings_test random_kills_test >/dev/null
tests=$PWD/build/$preset/tests
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 ASAN_OPTIONS=detect_leaks=0
export VEXNUMKR_SEED=$seed

# run NAME: its figures and what it finds, without what tells that all is well; fails when it does.
run() {
  "$tests/$1" 2>&1 |
    { grep -v -e '^\[' -e 'This plugin does not support' -e XDG_RUNTIME_DIR -e '^$' || true; }
}

for engine in "${engines[@]}"; do
  echo "== $engine"
  export VEXNUMKR_TEST_ENGINE=$engine
  if [ "$minutes" != 0 ]; then
    VEXNUMKR_SOAK_MINUTES=$(awk "BEGIN { print $minutes / ${#engines[@]} }") run soak_test
  fi
  if [ "$kills" != 0 ]; then VEXNUMKR_KILLS=$kills run random_kills_test; fi
done
echo "== openings"
unset VEXNUMKR_TEST_ENGINE
VEXNUMKR_OPENINGS=1000 run openings_test
echo "No finding."
