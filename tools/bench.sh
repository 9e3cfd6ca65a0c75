#!/usr/bin/env bash
# Runs the benchmark of the release build, with database servers of its own.
#
#   tools/bench.sh [OPTION...]      the options are those of vexnumkr-bench, e.g. --benchmark_filter=load
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/install-packages.sh test
cmake --preset release -DBUILD_TESTING=ON
cmake --build --preset release --target vexnumkr-bench

export VEXNUMKR_TEST_SERVERS="$PWD/build/release/bench-servers"
tests/servers/fixture.sh start "$VEXNUMKR_TEST_SERVERS"
trap 'tests/servers/fixture.sh stop "$VEXNUMKR_TEST_SERVERS"' EXIT
build/release/bin/vexnumkr-bench "$@"
