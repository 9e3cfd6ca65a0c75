#!/usr/bin/env bash
# Attacks what reads texts from outside with inputs that libFuzzer makes up (tests/fuzz/README.md).
#
#   tools/fuzz.sh [--seconds N] [--runs N] [TARGET...]
#
# The targets are those of tests/fuzz/targets, all without any named. --seconds is for all of them
# together (60 without it, at least 1; 36000 is a night), --runs ends each after so many inputs instead. Inputs
# that have taken new ways are kept in build/fuzz/inputs, so that the next run goes on from there. An
# input for which a property does not hold ends with 1 and lies in build/fuzz/found; it belongs into
# tests/fuzz/corpus/TARGET with the change that mends it.
#
# Takes clang with libFuzzer; without it this says so and ends with 0.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# number OPTION VALUE: the value, for 0 means to the fuzzers that there is no end.
number() {
  case "${2:-}" in
    '' | 0* | *[!0-9]*)
      echo "$1 takes a number from 1 on" >&2
      exit 2
      ;;
  esac
  echo "$2"
}

seconds=60 runs=-1 targets=()
while [ $# -gt 0 ]; do
  case "$1" in
    --seconds)
      seconds=$(number "$@")
      shift
      ;;
    --runs)
      runs=$(number "$@")
      seconds=0
      shift
      ;;
    --help | -h)
      sed -n '2,13s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"
      exit 0
      ;;
    -*)
      sed -n '4s/^# *//p' "${BASH_SOURCE[0]}" >&2
      exit 2
      ;;
    *) targets+=("$1") ;;
  esac
  shift
done
if [ "${#targets[@]}" -eq 0 ]; then
  for file in tests/fuzz/targets/*.cpp; do targets+=("$(basename "$file" .cpp)"); done
fi
for target in "${targets[@]}"; do
  [ -f "tests/fuzz/targets/$target.cpp" ] || { echo "no target is called $target" >&2 && exit 2; }
done

can_fuzz() {
  local probe
  probe=$(mktemp -d)
  echo 'extern "C" int LLVMFuzzerTestOneInput(const char*, unsigned long) { return 0; }' \
    >"$probe/probe.cpp"
  clang++ -fsanitize=fuzzer,address,undefined "$probe/probe.cpp" -o "$probe/probe" 2>"$probe/log"
  local status=$?
  rm -rf "$probe"
  return "$status"
}
if ! command -v clang++ >/dev/null || ! can_fuzz; then
  echo "skipped: there is no clang++ with libFuzzer (Debian: clang libclang-rt-dev)"
  exit 0
fi

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake --preset fuzz "${launcher[@]}" >/dev/null
cmake --build build/fuzz --target "${targets[@]/#/fuzz_}"

servers=build/fuzz/servers
stop_servers() {
  if [ -f "$servers" ]; then tests/servers/fixture.sh stop "$servers"; fi
}
trap stop_servers EXIT
case " ${targets[*]} " in
  *" statement_servers "*)
    tests/servers/fixture.sh start "$servers"
    export VEXNUMKR_TEST_SERVERS=$PWD/$servers
    ;;
esac

# Qt's plug-ins and the drivers' libraries keep some of their memory to the end.
export ASAN_OPTIONS=detect_leaks=0:quarantine_size_mb=16:malloc_context_size=4
export QT_QPA_PLATFORM=offscreen

# Long inputs are slow, and find nothing that shorter ones do not.
longest() {
  case "$1" in
    import_files) echo 900 ;;
    scenario_texts) echo 500 ;;
    statement_gate) echo 300 ;;
    *) echo 200 ;;
  esac
}

share=$((seconds / ${#targets[@]}))
[ "$seconds" -eq 0 ] || [ "$share" -gt 0 ] || share=1
status=0
for target in "${targets[@]}"; do
  mkdir -p "build/fuzz/inputs/$target" "build/fuzz/found/$target"
  log=build/fuzz/found/$target.log
  if "build/fuzz/fuzz/fuzz_$target" -max_total_time="$share" -runs="$runs" -timeout=20 \
    -rss_limit_mb=2500 -max_len="$(longest "$target")" -print_final_stats=1 \
    -artifact_prefix="build/fuzz/found/$target/" "build/fuzz/inputs/$target" \
    "tests/fuzz/corpus/$target" >"$log" 2>&1; then
    echo "$target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs"
  else
    status=1
    echo "$target: FAILED"
    sed -n '/terminate called/,/^==/p; /^SUMMARY/p; /Test unit written/p' "$log"
  fi
done
exit "$status"
