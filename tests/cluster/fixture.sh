#!/usr/bin/env bash
# A cluster of a test run.
#
#   tests/cluster/fixture.sh galera|standby start FILE   starts it in a temporary folder's folder of
#                                                        that name; FILE then names the temporary one
#   tests/cluster/fixture.sh galera|standby stop FILE    stops it and removes both
#
# It also stops when the process that has started this script (ctest) ends in any other way.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
kind=${1:?} action=${2:?} file=${3:?}

stop_all() {
  "$here/cluster.sh" "$kind" stop "$1/$kind" >>"$1/log" 2>&1 || true
  rm -rf "$1"
}

case "$action" in
  start)
    folder=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-cluster-XXXXXX")
    chmod 711 "$folder"
    # Before anything is started, so that nothing outlives a run that is killed meanwhile.
    setsid "$0" "$kind" watch "$file" "$folder" "$PPID" >/dev/null 2>&1 </dev/null &
    if ! "$here/cluster.sh" "$kind" start "$folder/$kind" >"$folder/log" 2>&1 </dev/null; then
      tail -n 40 "$folder/log" "$folder/$kind"/*/log || true
      stop_all "$folder"
      exit 1
    fi
    mkdir -p "$(dirname "$file")"
    echo "$folder" >"$file"
    ;;
  stop)
    stop_all "$(cat "$file")"
    rm -f "$file"
    ;;
  watch)
    folder=${4:?} parent=${5:?}
    tail --pid="$parent" -f /dev/null
    [ ! -d "$folder" ] || stop_all "$folder"
    ;;
  *)
    sed -n '4,6p' "$0" >&2
    exit 2
    ;;
esac
