#!/usr/bin/env bash
# Draws numbers from eight processes at once, 2,000 each, on every engine: none comes twice, and
# without kills none is left out.
#
#   tools/test-draws.sh [PRESET [COUNT]]     dev and 2000 where nothing is said
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-dev}
cmake --build --preset "$preset" --target draw_processes_test
VEXNUMKR_TEST_DRAWS=${2:-2000} ctest --preset "$preset" -R '^draw_processes_test' -j 1
