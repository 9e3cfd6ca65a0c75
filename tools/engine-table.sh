#!/usr/bin/env bash
# Prints what a test run has passed on which database engine, as a Markdown table.
#
#   tools/engine-table.sh FILE            FILE is ctest's --output-junit
#   tools/engine-table.sh FILE README     puts the table between README's marks for it
#
# A cell is how many of the tests with that label and that engine's have passed.
set -euo pipefail
[ $# -ge 1 ] || { sed -n '4,5p' "$0" >&2; exit 2; }

table() {
  awk '
    BEGIN {
      engines = split("sqlite postgresql mariadb odbc-postgresql odbc-sqlite", engine, " ")
      names["sqlite"] = "SQLite"; names["postgresql"] = "PostgreSQL"; names["mariadb"] = "MariaDB"
      names["odbc-postgresql"] = "PostgreSQL, ODBC"; names["odbc-sqlite"] = "SQLite, ODBC"
      kinds = split("contract scenario unit gui fault engine", kind, " ")
      print "| engine | contract suite | scenarios | loading, saving | dialogs | failures | the engine itself |"
      print "|---|---|---|---|---|---|---|"
    }
    /<testcase / { passed = /status="run"/; labels = "" }
    /name="cmake_labels"/ { labels = $0; sub(/.*value="/, "", labels); sub(/".*/, "", labels) }
    /<\/testcase>/ {
      labels = ";" labels ";"
      for (e = 1; e <= engines; ++e)
        for (k = 1; k <= kinds; ++k)
          if (index(labels, ";" engine[e] ";") && index(labels, ";" kind[k] ";")) {
            ++all[e, k]
            if (passed) ++good[e, k]
          }
    }
    END {
      for (e = 1; e <= engines; ++e) {
        line = "| " names[engine[e]]
        for (k = 1; k <= kinds; ++k)
          line = line " | " (all[e, k] ? good[e, k] + 0 " of " all[e, k] : "")
        print line " |"
      }
    }' "$1"
}

if [ $# -eq 1 ]; then
  table "$1"
else
  content=$(mktemp)
  awk -v table="$(table "$1")" '
    /^<!-- engines -->/ { print; print table; skip = 1 }
    /^<!-- \/engines -->/ { skip = 0 }
    !skip { print }
    /^<!-- engines -->/ { next }' "$2" | awk '!(/^<!-- engines -->/ && seen++)' >"$content"
  cat "$content" >"$2"
  rm -f "$content"
fi
