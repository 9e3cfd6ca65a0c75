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
# shellcheck source=../servers/life.sh
. "$here/../servers/life.sh"

usage() { sed -n '4,6p' "$0"; }

stop_all() {
  "$here/cluster.sh" "$kind" stop "$1/$kind" >>"$1/log" 2>&1 || true
  rm -rf "$1"
}

start_all() {
  "$here/cluster.sh" "$kind" start "$1/$kind" >"$1/log" 2>&1 </dev/null && return
  tail -n 40 "$1/log" "$1/$kind"/*/log || true
  return 1
}

live vexnumkr-cluster "$action" "$file" "${@:4}" -- "$0" "$kind"
