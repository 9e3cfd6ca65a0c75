#!/usr/bin/env bash
# One database server of the tests' own, in a folder, reached through a socket there.
#
#   tests/servers/server.sh ENGINE start|stop|kill FOLDER
#
# The engine is one of those with a server.sh in their folder of src/engines.
# start makes the server's files where FOLDER lacks them, and returns when the server answers; stop
# ends it properly; kill ends it at once, as a power failure would. System services are left alone.
set -euo pipefail

usage() {
  sed -n '4p' "${BASH_SOURCE[0]}" >&2
  exit 2
}
[ $# -eq 3 ] || usage
engine=$1 action=$2 folder=$3

here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source=tests/servers/as_server.sh
source "$here/as_server.sh"

# Defines server_user, start_server, stop_server and kill_server.
engine_script=$here/../../src/engines/$engine/server.sh
[ -f "$engine_script" ] || usage
# shellcheck source=/dev/null
source "$engine_script"

case "$action" in
  start)
    take_folder "$folder"
    cd "$folder"
    start_server
    ;;
  stop | kill)
    cd "$folder"
    "${action}_server"
    ;;
  *) usage ;;
esac
