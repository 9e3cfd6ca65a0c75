# Whose work is in the programs is named with its licence: to programs, to readers, and to Debian's users.

document=$PREFIX/share/doc/vexnumkr/vexnumkr.spdx.json
notices=$PREFIX/share/doc/vexnumkr/NOTICES.txt

# named NAME LICENCE FIRST_WORDS
named() {
  if command -v jq >/dev/null; then
    jq -e --arg name "$1" --arg licence "$2" '(.packages[] | select(.name == $name)) as $part
      | ($part.licenseDeclared == $licence) and ($part.versionInfo | test("^[0-9]+[.][0-9]"))
        and any(.relationships[]; .relatedSpdxElement == $part.SPDXID)' "$document"
  else
    echo "skipped: jq is not installed"
  fi
  for file in "$notices" "$ROOT/debian/copyright"; do
    sed 's/^ *//' "$file" >text
    grep -xF "$1" text
    grep -F "$3" text
  done
}

named CLI11 BSD-3-Clause "Neither the name of the University"
named "JSON for Modern C++" MIT "Permission is hereby granted, free of charge"
named libxlsxwriter BSD-2-Clause "THE NETBSD FOUNDATION, INC. AND CONTRIBUTORS"

# A further library belongs into that list.
sed -nE 's/^find_(package|library)\(([A-Za-z0-9_]+).*/\2/p' "$ROOT/src/cli/CMakeLists.txt" | sort |
  diff - <(printf '%s\n' CLI11 XLSXWRITER_LIBRARY nlohmann_json)
