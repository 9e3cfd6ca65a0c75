#!/usr/bin/env bash
# One database server of the tests' own, in a folder, reached through a socket there.
#
#   tests/servers/server.sh postgresql|mariadb start|stop|kill FOLDER
#
# start makes the server's files where FOLDER lacks them, and returns when the server answers; stop
# ends it properly; kill ends it at once, as a power failure would. System services are left alone.
# The servers refuse to run as root, so for root they run as the user that their package made.
set -euo pipefail

usage() {
  sed -n '4p' "${BASH_SOURCE[0]}" >&2
  exit 2
}
[ $# -eq 3 ] || usage
engine=$1 action=$2 folder=$3

first_user() {
  local user
  for user in "$@"; do
    if id -u "$user" >/dev/null 2>&1; then
      echo "$user"
      return
    fi
  done
}

case "$engine" in
  postgresql) server_user=$(first_user postgres nobody) ;;
  mariadb) server_user=$(first_user mysql nobody) ;;
  *) usage ;;
esac

as_server() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u "$server_user" -- "$@"
  else
    "$@"
  fi
}

take_folder() {
  mkdir -p "$folder"
  if [ "$(id -u)" -eq 0 ]; then chown "$server_user" "$folder"; fi
  cd "$folder"
}

# Nothing here has to survive a failure of the machine.
postgresql_start() {
  local bin
  bin=$(postgresql_bin)
  local isNew=
  [ -e "$folder/data/PG_VERSION" ] || isNew=1
  if [ -n "$isNew" ]; then
    as_server "$bin/initdb" -D "$folder/data" -U vexnumkr -A trust -E UTF8 --locale=C.UTF-8 \
      --no-sync --no-instructions
    # Members of "kennwort" need a password.
    as_server tee "$folder/data/pg_hba.conf" <<<"local all +kennwort scram-sha-256
local all all trust"
  fi
  as_server "$bin/pg_ctl" start -D "$folder/data" -l "$folder/log" -w -t 60 -o \
    "-c listen_addresses= -c unix_socket_directories=$folder -c fsync=off -c full_page_writes=off \
     -c max_connections=60 -c shared_buffers=32MB -c lc_messages=C"
  [ -z "$isNew" ] || "$bin/psql" -h "$folder" -U vexnumkr -c "CREATE ROLE kennwort" postgres
}
postgresql_bin() { find /usr/lib/postgresql -maxdepth 2 -name bin | sort -V | tail -n 1; }
postgresql_stop() {
  as_server "$(postgresql_bin)/pg_ctl" stop -D "$folder/data" -m "${1:-fast}" -w -t 60
}
postgresql_kill() { postgresql_stop immediate; }

# A server clears its folder for temporary tables when it starts, so that is none it shares.
mariadb_start() {
  local isNew=
  if [ ! -d "$folder/data/mysql" ]; then
    isNew=1
    as_server mariadb-install-db --no-defaults --datadir="$folder/data" --tmpdir="$folder" \
      --skip-test-db --auth-root-authentication-method=normal --skip-name-resolve
  fi
  # exec, so that the process that is known here is the server.
  as_server bash -c 'exec mariadbd "$@" >"$0" 2>&1 </dev/null &' "$folder/log" --no-defaults \
    --datadir="$folder/data" --tmpdir="$folder" --socket="$folder/socket" --pid-file="$folder/pid" \
    --skip-networking --innodb-flush-log-at-trx-commit=2 --skip-innodb-doublewrite \
    --innodb-buffer-pool-size=64M --innodb-log-file-size=32M --skip-log-bin --performance-schema=OFF
  mariadb-admin --no-defaults --socket="$folder/socket" --user=root --wait=60 \
    --connect-timeout=60 ping
  # They would go before users of any host.
  [ -z "$isNew" ] || mariadb --no-defaults --socket="$folder/socket" --user=root --execute \
    "DELETE FROM mysql.global_priv WHERE User = ''; FLUSH PRIVILEGES"
}
mariadb_end() {
  local pid
  pid=$(cat "$folder/pid" 2>/dev/null) || return 0
  kill "-$1" "$pid" 2>/dev/null || true
  tail --pid="$pid" -f /dev/null
  rm -f "$folder/pid"
}
mariadb_stop() { mariadb_end TERM; }
mariadb_kill() { mariadb_end KILL; }

case "$action" in
  start)
    take_folder
    "${engine}_start"
    ;;
  stop | kill)
    cd "$folder"
    "${engine}_$action"
    ;;
  *) usage ;;
esac
