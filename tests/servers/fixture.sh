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
# Those that have servers.
engines=()
for script in "$here"/../../src/engines/*/server.sh; do
  engines+=("$(basename "$(dirname "$script")")")
done

stop_all() {
  local folder=$1 engine
  for engine in "${engines[@]}"; do
    "$here/server.sh" "$engine" stop "$folder/$engine" >>"$folder/log" 2>&1 || true
  done
  rm -rf "$folder"
}

case "$action" in
  start)
    # Sockets have short names, so this is not the build folder.
    folder=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-servers-XXXXXX")
    chmod 711 "$folder"
    # Before anything is started, so that nothing outlives a run that is killed meanwhile.
    setsid "$0" watch "$file" "$folder" "$PPID" >/dev/null 2>&1 </dev/null &
    pids=()
    for engine in "${engines[@]}"; do
      "$here/server.sh" "$engine" start "$folder/$engine" >"$folder/$engine.log" 2>&1 </dev/null &
      pids+=($!)
    done
    for i in "${!engines[@]}"; do
      wait "${pids[$i]}" && continue
      cat "$folder/${engines[$i]}.log" "$folder/${engines[$i]}/log" || true
      echo "${engines[$i]} does not start"
      stop_all "$folder"
      exit 1
    done
    mkdir -p "$(dirname "$file")"
    echo "$folder" >"$file"
    ;;
  stop)
    stop_all "$(cat "$file")"
    rm -f "$file"
    ;;
  watch)
    folder=${3:?} parent=${4:?}
    tail --pid="$parent" -f /dev/null
    [ ! -d "$folder" ] || stop_all "$folder"
    ;;
  *)
    sed -n '4,5p' "$0" >&2
    exit 2
    ;;
esac
