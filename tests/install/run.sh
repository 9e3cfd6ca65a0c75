#!/usr/bin/env bash
# Installs what has been built and checks what its users get; prints a line per check.
#
#   tests/install/run.sh BUILD [CHECK...]
#
# Without CHECK: all of them, which takes about half a minute. A check is a script in `checks`; it finds
# $ROOT (the sources), $BUILD, $PREFIX (where everything is installed), $LIBDIR below it and $WORK (its own).
set -uo pipefail

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
if [ $# -eq 0 ] || [ ! -e "$1/CMakeCache.txt" ]; then
  sed -n '2,7s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
  exit 2
fi
BUILD=$(cd "$1" && pwd)
shift
checks=("$@")
if [ $# -eq 0 ]; then
  for file in "$ROOT"/tests/install/checks/*.sh; do checks+=("$(basename "$file" .sh)"); done
fi

folder=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-installed-XXXXXX")
trap 'rm -rf "$folder"' EXIT
# What is installed can be moved, so it is.
cmake --install "$BUILD" --prefix "$folder/first" >"$folder/log" || {
  cat "$folder/log"
  exit 1
}
mv "$folder/first" "$folder/prefix"
libdir=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:PATH=//p' "$BUILD/CMakeCache.txt")
export ROOT BUILD PREFIX=$folder/prefix LIBDIR=$folder/prefix/$libdir LC_ALL=C.UTF-8
export LD_LIBRARY_PATH=$LIBDIR PATH=$PREFIX/bin:$PATH

# Fails when the command does not: `set -e` passes over a failing `!`.
not() {
  if "$@"; then
    echo "succeeds: $*"
    return 1
  fi
}
export -f not

status=0
for check in "${checks[@]}"; do
  export WORK=$folder/$check
  mkdir "$WORK"
  if (cd "$WORK" && bash -euo pipefail "$ROOT/tests/install/checks/$check.sh") >"$folder/log" 2>&1; then
    echo "ok      $check"
    grep '^skipped:' "$folder/log" || true
  else
    echo "FAILED  $check"
    sed 's/^/        /' "$folder/log"
    status=1
  fi
done
exit "$status"
