# shellcheck shell=bash disable=SC2154
# How the tests start and stop a server of PostgreSQL, in "$folder"; read by tests/servers/server.sh.

server_user=$(first_user postgres nobody)

# Nothing here has to survive a failure of the machine.
start_server() {
  local bin
  bin=$(server_programs)
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
server_programs() { find /usr/lib/postgresql -maxdepth 2 -name bin | sort -V | tail -n 1; }
stop_server() {
  as_server "$(server_programs)/pg_ctl" stop -D "$folder/data" -m "${1:-fast}" -w -t 60
}
kill_server() { stop_server immediate; }
