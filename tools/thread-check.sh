#!/usr/bin/env bash
# Builds with the thread sanitizer and runs what has threads: hosts that use the component from the
# wrong ones, and hosts that draw numbers on one thread each.
#
#   tools/thread-check.sh
#
# Qt's own libraries are not instrumented, so that what passes between threads inside them looks like a
# race; what is reported from within them is left out (tools/thread-check.supp).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake --preset tsan "${launcher[@]}" >/dev/null
tests=(misuse_threads_test misuse_release_test misuse_calls_test)
cmake --build --preset tsan --target "${tests[@]}"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export TSAN_OPTIONS="suppressions=$PWD/tools/thread-check.supp halt_on_error=0 exitcode=66"
for test in "${tests[@]}"; do "build/tsan/tests/$test"; done
