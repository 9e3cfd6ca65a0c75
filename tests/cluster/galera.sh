# shellcheck shell=bash disable=SC2154
# Three nodes of MariaDB with galera-4; read by tests/cluster/cluster.sh.

server_user=$(first_user mysql nobody)
node_count=3
provider=/usr/lib/galera/libgalera_smm.so

addresses() {
  local each text=
  for each in $(seq "$node_count"); do text+=",127.0.0.1:$(port_of "$each" group)"; done
  echo "gcomm://${text#,}"
}

# The group gives up a silent node after a few seconds instead of five to fifteen, so that tests are
# quick; a busy machine still gets along with that.
provider_options() {
  local group
  group=$(port_of "$node" group)
  echo "base_port=$group;gmcast.listen_addr=tcp://127.0.0.1:$group;\
ist.recv_addr=127.0.0.1:$(port_of "$node" transfer);gcache.size=64M;\
evs.keepalive_period=PT0.5S;evs.inactive_check_period=PT0.5S;evs.suspect_timeout=PT3S;\
evs.inactive_timeout=PT8S"
}

# run_node [OPTION...]: the node's server in the background.
run_node() {
  local own=$folder/$node
  as_server bash -c 'exec mariadbd "$@" >>"$0" 2>&1 </dev/null &' "$own/log" --no-defaults \
    --datadir="$own/data" --tmpdir="$own" --socket="$own/socket" --pid-file="$own/pid" \
    --bind-address=127.0.0.1 --port="$(port_of "$node" port)" --skip-name-resolve \
    --binlog-format=ROW --innodb-autoinc-lock-mode=2 --innodb-flush-log-at-trx-commit=2 \
    --skip-innodb-doublewrite --innodb-buffer-pool-size=64M --innodb-log-file-size=32M \
    --skip-log-bin --performance-schema=OFF --wsrep-on=ON --wsrep-provider="$provider" \
    --wsrep-cluster-name=vexnumkr --wsrep-cluster-address="$(addresses)" \
    --wsrep-node-name="node$node" --wsrep-node-address="127.0.0.1:$(port_of "$node" group)" \
    --wsrep-provider-options="$(provider_options)" --wsrep-sst-method=rsync \
    --wsrep-sst-receive-address="127.0.0.1:$(port_of "$node" state)" "$@"
}

administer() {
  mariadb --no-defaults --socket="$folder/$node/socket" --user=root --batch --skip-column-names \
    --connect-timeout=5 --execute "$1"
}
is_in_step() { administer "SHOW STATUS LIKE 'wsrep_local_state_comment'" | grep -q Synced; }

# The others begin as copies of the first, so that none has to be sent the data.
start_cluster() {
  for node in $(seq "$node_count"); do new_ports port group transfer state; done
  node=1
  as_server mariadb-install-db --no-defaults --datadir="$folder/1/data" --tmpdir="$folder/1" \
    --skip-test-db --auth-root-authentication-method=normal --skip-name-resolve
  run_node --wsrep-new-cluster
  until_true 60 is_in_step
  administer "DELETE FROM mysql.global_priv WHERE User = '' OR (User = 'root' AND Host <> 'localhost');
    FLUSH PRIVILEGES;
    CREATE USER vexnumkr IDENTIFIED BY '$(cat "$folder/password")';
    GRANT ALL ON *.* TO vexnumkr WITH GRANT OPTION"
  end_process "$folder/1/pid" TERM
  for node in 2 3; do as_server cp -a "$folder/1/data" "$folder/$node/data"; done
  node=1
  run_node --wsrep-new-cluster
  until_true 60 is_in_step
  for node in 2 3; do run_node; done
  for node in 2 3; do until_true 120 is_in_step; done
}

kill_node() { end_process "$folder/$node/pid" KILL; }

# A node that was killed has forgotten how far it was; the engine's own log still knows.
recovered_position() {
  as_server mariadbd --no-defaults --datadir="$folder/$node/data" --tmpdir="$folder/$node" \
    --skip-innodb-doublewrite --innodb-log-file-size=32M --wsrep-recover \
    --pid-file="$folder/$node/recovery" 2>&1 </dev/null |
    sed -n 's/.*WSREP: Recovered position: *//p' | tail -n 1
}
join_node() {
  run_node --wsrep-start-position="$(recovered_position)"
  until_true 120 is_in_step
}

is_whole() {
  is_in_step && administer "SHOW STATUS LIKE 'wsrep_cluster_size'" | grep -qw "$node_count"
}
# A node that was isolated finds the others by itself.
mend_cluster() {
  for node in $(seq "$node_count"); do
    if is_running "$folder/$node/pid"; then
      administer "SET GLOBAL wsrep_provider_options = 'gmcast.isolate=0'"
    else
      run_node --wsrep-start-position="$(recovered_position)"
    fi
  done
  for node in $(seq "$node_count"); do until_true 120 is_whole; done
}
