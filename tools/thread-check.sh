#!/usr/bin/env bash
# Builds with the thread sanitizer and runs the hosts that do what hosts must not do, some of them from
# other threads or on a thread for each connection. Qt paints the dialogs of all of them on threads of
# its own.
#
#   tools/thread-check.sh
#
# A race is reported when both accesses are in our code, or in a call of it to another library, wherever
# that code was called from: in an open dialog, too. What Qt and GLib do by themselves is not seen, since
# they are not instrumented (tools/thread-check.supp). What passes through Qt's event queue counts as
# ordered by the call that wakes the receiving thread up. The host that unloads the library is not among
# them; the sanitizer cannot follow that.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake --preset tsan "${launcher[@]}" >/dev/null
tests=(misuse_{application,calls,exceptions,release,threads}_test)
cmake --build --preset tsan --target "${tests[@]}"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export TSAN_OPTIONS="suppressions=$PWD/tools/thread-check.supp halt_on_error=0 exitcode=66"
for test in "${tests[@]}"; do "build/tsan/tests/$test"; done
