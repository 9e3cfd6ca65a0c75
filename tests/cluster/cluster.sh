#!/usr/bin/env bash
# A database cluster of the tests' own on this machine's loopback, in a folder.
#
#   tests/cluster/cluster.sh galera|standby start|mend|stop FOLDER
#   tests/cluster/cluster.sh galera|standby kill|join|cut|heal FOLDER NODE
#   tests/cluster/cluster.sh standby leave|promote FOLDER NODE
#
# galera is three nodes of MariaDB with galera-4, standby is a primary of PostgreSQL (node 1) with a
# synchronous standby (node 2). start makes them in the folder and returns when all of them are in
# step; mend brings back whatever was done to them; stop ends them at once.
#
#   kill      ends a node as a power failure would
#   leave     ends a node as its administrator does
#   join      brings it back and returns when it is in step with the others
#   cut       lets no byte pass between a node and its clients any more, while both go on
#   heal      lets them pass again
#   promote   makes the standby the primary
#
# Clients reach node N by the port in FOLDER/N/relay, as the user vexnumkr with the password in
# FOLDER/password; the servers themselves listen on the one in FOLDER/N/port.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source=tests/servers/as_server.sh
source "$here/../servers/as_server.sh"

usage() {
  sed -n '4,6p' "${BASH_SOURCE[0]}" >&2
  exit 2
}
[ $# -ge 3 ] || usage
kind=$1 action=$2 folder=$3 node=${4:-}

# Prints a port that nobody listens on, outside those that the system gives to clients. Nodes listen only
# later, so each kind of cluster has ports of its own, and none has one twice.
free_port() {
  local port first=20000
  if [ "$kind" = standby ]; then first=26000; fi
  while :; do
    port=$((first + RANDOM % 6000))
    if ! grep -qsx "$port" "$folder"/*/* && ! (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
      echo "$port"
      return
    fi
  done
}
# new_ports NAME...: writes a port of each name for the node.
new_ports() {
  local name
  for name in "$@"; do free_port >"$folder/$node/$name"; done
}
port_of() { cat "$folder/$1/$2"; }

# until_true SECONDS COMMAND...: false when it does not come true in time.
until_true() {
  local end=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    if [ "$SECONDS" -ge "$end" ]; then
      echo "not within its time: $*" >&2
      return 1
    fi
    sleep 0.1
  done
}

# end_process FILE SIGNAL: ends the process whose number is the file's first line, and waits for it.
end_process() {
  local pid
  pid=$(head -n 1 "$1" 2>/dev/null) || return 0
  kill "-$2" "$pid" 2>/dev/null || true
  tail --pid="$pid" -f /dev/null
}

# What passes the bytes between a node and its clients; its processes are a group of their own.
start_relay() {
  new_ports relay
  setsid bash -c 'echo $$ >"$1"; exec socat "TCP-LISTEN:$2,bind=127.0.0.1,reuseaddr,fork" "TCP:127.0.0.1:$3"' \
    relay "$folder/$node/relay-pid" "$(port_of "$node" relay)" "$(port_of "$node" port)" \
    >/dev/null 2>&1 </dev/null &
  until_true 10 test -s "$folder/$node/relay-pid"
}
signal_relay() { kill "-$1" -- "-$(cat "$folder/$node/relay-pid")"; }

is_running() {
  local pid
  pid=$(head -n 1 "$1" 2>/dev/null) && kill -0 "$pid" 2>/dev/null
}

# Defines server_user, node_count, start_cluster, mend_cluster, kill_node, join_node and what else
# the kind has.
case "$kind" in
  galera | standby) ;;
  *) usage ;;
esac
# shellcheck source=/dev/null
source "$here/$kind.sh"

stop_cluster() {
  for node in $(seq "$node_count"); do
    kill_node || true
    signal_relay KILL 2>/dev/null || true
  done
}

case "$action" in
  start)
    for node in $(seq "$node_count"); do
      take_folder "$folder/$node"
    done
    od -An -N12 -tx1 /dev/urandom | tr -d ' \n' >"$folder/password"
    start_cluster
    for node in $(seq "$node_count"); do start_relay; done
    ;;
  mend)
    for node in $(seq "$node_count"); do signal_relay CONT; done
    mend_cluster
    ;;
  stop) stop_cluster ;;
  cut) signal_relay STOP ;;
  heal) signal_relay CONT ;;
  kill | join | leave | promote)
    [ "$(type -t "${action}_node")" = function ] || usage
    "${action}_node"
    ;;
  *) usage ;;
esac
