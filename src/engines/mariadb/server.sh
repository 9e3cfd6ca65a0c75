# shellcheck shell=bash disable=SC2154
# How the tests start and stop a server of MariaDB, in "$folder"; read by tests/servers/server.sh.

server_user=$(first_user mysql nobody)

# A server clears its folder for temporary tables when it starts, so that is none it shares.
start_server() {
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
end_server() {
  local pid
  pid=$(cat "$folder/pid" 2>/dev/null) || return 0
  kill "-$1" "$pid" 2>/dev/null || true
  tail --pid="$pid" -f /dev/null
  rm -f "$folder/pid"
}
stop_server() { end_server TERM; }
kill_server() { end_server KILL; }
