#!/usr/bin/env bash
# Prints what a test run has passed on which database engine, as a Markdown table.
#
#   tools/engine-table.sh FILE            FILE is ctest's --output-junit
#   tools/engine-table.sh FILE README     puts the table between README's marks for it
#
# A cell is how many of the engine's tests of that kind have passed. NAME@ENGINE runs on that engine;
# NAME alone on SQLite, or on PostgreSQL where it needs a server, if there is a NAME@ENGINE beside it.
set -euo pipefail
[ $# -ge 1 ] || { sed -n '4,5p' "$0" >&2; exit 2; }

table() {
  awk '
    function kindOf(name) {
      if (name ~ /^database_contract/) return 1
      if (name ~ /^scenario_/) return 2
      if (name ~ /^dialog_/) return 4
      if (name ~ /^(saving_failure|lost_server)/) return 5
      if (name ~ /^(engine_sessions|rights|sample_engine)/) return 6
      return 3
    }
    function engineOf(name, at) {
      if (at > 0) return substr(name, at + 1)
      if ((name "@odbc-sqlite") in ran) return "sqlite"
      return (name "@mariadb") in ran ? "postgresql" : ""
    }
    BEGIN {
      engines = split("sqlite postgresql mariadb odbc-postgresql odbc-sqlite", engine, " ")
      names["sqlite"] = "SQLite"; names["postgresql"] = "PostgreSQL"; names["mariadb"] = "MariaDB"
      names["odbc-postgresql"] = "PostgreSQL, ODBC"; names["odbc-sqlite"] = "SQLite, ODBC"
      kinds = 6
      print "| engine | contract suite | scenarios | loading, saving | dialogs | failures | servers |"
      print "|---|---|---|---|---|---|---|"
    }
    /^[ \t]*<testcase / {
      name = $0
      sub(/.*<testcase name="/, "", name)
      sub(/".*/, "", name)
      ran[name] = /status="run"/
    }
    END {
      for (name in ran) {
        at = index(name, "@")
        e = engineOf(name, at)
        k = kindOf(at > 0 ? substr(name, 1, at - 1) : name)
        ++all[e, k]
        good[e, k] += ran[name]
      }
      for (e = 1; e <= engines; ++e) {
        line = "| " names[engine[e]]
        for (k = 1; k <= kinds; ++k)
          line = line " | " (all[engine[e], k] ? good[engine[e], k] " of " all[engine[e], k] : "")
        print line " |"
      }
    }' "$1"
}

if [ $# -eq 1 ]; then
  table "$1"
else
  content=$(mktemp)
  awk -v table="$(table "$1")" '
    /^<!-- \/engines -->/ { skip = 0 }
    !skip { print }
    /^<!-- engines -->/ { print table; skip = 1 }' "$2" >"$content"
  cat "$content" >"$2"
  rm -f "$content"
fi
