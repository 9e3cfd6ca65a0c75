#!/usr/bin/env bash
# The tests on database clusters at length: two administrators with the dialog and four hosts that
# draw numbers, while every twenty seconds a node of the cluster is killed and comes back.
#
#   tools/cluster-test.sh [PRESET [SECONDS]]     dev and 600 where nothing is said
#
# Each of the two clusters, Galera and PostgreSQL with its standby, takes that long; the figures are in
# the log that the last line names.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-dev}
seconds=${2:-600}
log=build/$preset/cluster-test.log
cmake --build --preset "$preset" --target galera_test standby_test long_run_test
status=0
VEXNUMKR_CLUSTER_SECONDS=$seconds ctest --preset "$preset" -L cluster --timeout $((seconds + 600)) \
  -j 2 -V >"$log" 2>&1 || status=$?
grep -E 'failures:|refused draws:|left out:|Test +#|tests passed' "$log" || true
echo "$log"
exit "$status"
