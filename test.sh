#!/usr/bin/env bash
# Builds everything and runs all tests, on every database engine; the last thing it prints is ctest's
# summary, or what has failed before that: then it ends at once.
#
#   ./test.sh [dev|release|all]
#
# dev (the default) tests with the sanitizers and only builds the release; release tests that; all
# tests both. What is installed of the release is checked each time, and the standard C++ targets are
# built with the Windows cross compiler; the libraries for Windows hosts are tested under Wine where the
# Qt of each has been built before; what reads texts from outside is fuzzed for a minute where clang is.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage() { sed -n '2,11s/^# \{0,1\}//p' test.sh; }

case "${1:-dev}" in
  dev) tested=(dev) ;;
  release) tested=(release) ;;
  all) tested=(release dev) ;;
  --help | -h)
    usage
    exit 0
    ;;
  *)
    usage >&2
    exit 2
    ;;
esac

tools/install-packages.sh test

launcher=()
if command -v ccache >/dev/null; then
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  # What the tests' precompiled headers take to be cached.
  export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
fi

# build PRESET [CMAKE ARGUMENT...]
build() {
  echo "== $1"
  cmake --preset "$@" "${launcher[@]}"
  cmake --build --preset "$1"
}

build windows-core
case "${tested[*]}" in
  dev) build release -DBUILD_TESTING=OFF ;;
  *release*) build release -DBUILD_TESTING=ON ;;
esac
case "${tested[*]}" in
  *dev*) build dev ;;
esac

# test_windows SCRIPT [--shared]: with the Qt that it needs. Building that takes longer than all of the
# tests, so it is not begun here.
test_windows() {
  if ! tools/windows/qt.sh --where "${@:2}" >/dev/null 2>&1; then
    echo "skipped: there is no Qt for Windows in the cache; tools/windows/build.sh ${*:2} builds it"
  elif ! tools/install-packages.sh windows-test; then
    echo "skipped: Wine cannot be installed"
  else
    "tools/windows/$1"
  fi
}

echo "== fuzz"
tools/fuzz.sh
echo "== installed"
tests/install/run.sh build/release
echo "== windows"
test_windows test.sh
echo "== windows, C++ and Qt"
test_windows test-shared.sh --shared
status=0
for preset in "${tested[@]}"; do
  echo "== ctest $preset"
  ctest --preset "$preset" --output-junit tests.xml || status=$?
done
exit "$status"
