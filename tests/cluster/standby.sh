# shellcheck shell=bash disable=SC2154
# A primary of PostgreSQL and its synchronous standby; read by tests/cluster/cluster.sh.

server_user=$(first_user postgres nobody)
node_count=2
bin=$(find /usr/lib/postgresql -maxdepth 2 -name bin | sort -V | tail -n 1)

other() { echo $((3 - node)); }

# What is committed is on both, also once the standby is the primary: then it waits until it has one
# of its own.
configure() {
  as_server tee -a "$folder/$node/data/postgresql.conf" >/dev/null <<END
listen_addresses = '127.0.0.1'
unix_socket_directories = '$folder/$node'
fsync = off
full_page_writes = off
shared_buffers = 32MB
max_connections = 60
lc_messages = 'C'
synchronous_commit = on
synchronous_standby_names = '*'
wal_receiver_status_interval = 1s
END
}

run_node() {
  as_server "$bin/pg_ctl" start -D "$folder/$node/data" -l "$folder/$node/log" -w -t 60 \
    -o "-p $(port_of "$node" port) -c unix_socket_directories=$folder/$node"
}

administer() {
  "$bin/psql" -X -h "$folder/$node" -p "$(port_of "$node" port)" -U postgres -d postgres -Atq \
    -v ON_ERROR_STOP=1 -c "SET synchronous_commit = local" -c "$@"
}
# The primary's view of its standby: has_standby [POSITION], which it is to have replayed.
has_standby() {
  administer "SELECT sync_state FROM pg_stat_replication WHERE state = 'streaming' AND
    replay_lsn >= '${1:-0/0}'" | grep -q sync
}
# Returns when what is committed now can be read from the standby too.
await_standby() { until_true 60 has_standby "$(administer "SELECT pg_current_wal_lsn()")"; }

start_cluster() {
  for node in $(seq "$node_count"); do new_ports port; done
  node=1
  as_server "$bin/initdb" -D "$folder/1/data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 --no-sync \
    --no-instructions
  # Sockets are for the administrator, who is whoever may enter the folder.
  as_server tee "$folder/1/data/pg_hba.conf" >/dev/null <<END
local all all trust
local replication all trust
host all vexnumkr 127.0.0.1/32 scram-sha-256
END
  configure
  run_node
  administer "CREATE ROLE vexnumkr SUPERUSER LOGIN PASSWORD '$(cat "$folder/password")'"
  node=2
  join_node
}

# Also a node that was the primary: what it has alone is worth nothing any more.
join_node() {
  end_process "$folder/$node/data/postmaster.pid" QUIT
  rm -rf "$folder/$node/data"
  as_server "$bin/pg_basebackup" -D "$folder/$node/data" -h "$folder/$(other)" \
    -p "$(port_of "$(other)" port)" -U postgres -c fast -R -X stream --no-sync
  run_node
  node=$(other)
  await_standby
}
kill_node() { as_server "$bin/pg_ctl" stop -D "$folder/$node/data" -m immediate -w -t 60; }
leave_node() { as_server "$bin/pg_ctl" stop -D "$folder/$node/data" -m fast -w -t 60; }
promote_node() { as_server "$bin/pg_ctl" promote -D "$folder/$node/data" -w -t 60; }

is_primary() {
  is_running "$folder/$node/data/postmaster.pid" &&
    [ ! -e "$folder/$node/data/standby.signal" ]
}
# Where both have been the primary, the first is to be believed.
mend_cluster() {
  local running=
  for node in 2 1; do
    if is_primary; then running=$node; fi
  done
  if [ -z "$running" ]; then
    for node in 2 1; do
      if is_running "$folder/$node/data/postmaster.pid"; then running=$node; fi
    done
    node=$running
    promote_node
  fi
  node=$running
  administer "ALTER SYSTEM RESET default_transaction_read_only" -c "SELECT pg_reload_conf()"
  if has_standby; then
    await_standby
  else
    node=$(other)
    join_node
  fi
}
