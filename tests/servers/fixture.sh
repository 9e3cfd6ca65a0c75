#!/usr/bin/env bash
# The database servers of a test run.
#
#   tests/servers/fixture.sh start FILE     starts them in a temporary folder, which FILE then names
#   tests/servers/fixture.sh stop FILE      stops them and removes both
#
# They also stop when the process that has started this script (ctest) ends in any other way.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
action=${1:?} file=${2:?}
# shellcheck source=life.sh
. "$here/life.sh"
# Those that have servers.
engines=()
for script in "$here"/../../src/engines/*/server.sh; do
  engines+=("$(basename "$(dirname "$script")")")
done

usage() { sed -n '4,5p' "$0"; }

stop_all() {
  local folder=$1 engine
  for engine in "${engines[@]}"; do
    "$here/server.sh" "$engine" stop "$folder/$engine" >>"$folder/log" 2>&1 || true
  done
  rm -rf "$folder"
}

start_all() {
  local folder=$1 engine i pids=()
  for engine in "${engines[@]}"; do
    "$here/server.sh" "$engine" start "$folder/$engine" >"$folder/$engine.log" 2>&1 </dev/null &
    pids+=($!)
  done
  for i in "${!engines[@]}"; do
    wait "${pids[$i]}" && continue
    cat "$folder/${engines[$i]}.log" "$folder/${engines[$i]}/log" || true
    echo "${engines[$i]} does not start"
    return 1
  done
}

live vexnumkr-servers "$action" "$file" "${@:3}" -- "$0"
