# What is installed has what makes faults harder to exploit, and tells nothing of where it was built.

programs() {
  find "$PREFIX" -type f -exec sh -c 'for file; do head -c 4 "$file" | grep -q "^.ELF" && echo "$file"; done' - {} +
}

# fails FILE WHAT
fails() {
  echo "$(basename "$1"): $2"
  failed=yes
}

# Function entries that indirect jumps may lead to are marked.
marks_entries() {
  case "$(uname -m)" in
    x86_64) objdump -d --no-show-raw-insn "$1" | grep -c endbr64 ;;
    aarch64) objdump -d --no-show-raw-insn "$1" | grep -cE 'paciasp|bti' ;;
    *) echo 1000 ;;
  esac
}

check() {
  local file=$1 dynamic header symbols
  dynamic=$(readelf -W -d "$file")
  header=$(readelf -W -h -l "$file")
  symbols=$(readelf -W --dyn-syms "$file")
  grep -q 'Type: *DYN' <<<"$header" || fails "$file" "not position-independent"
  grep -q GNU_RELRO <<<"$header" || fails "$file" "no RELRO"
  grep -q 'Flags:.*NOW' <<<"$dynamic" || fails "$file" "symbols are not bound at the start"
  grep -qE 'R(UN)?PATH' <<<"$dynamic" && fails "$file" "has a path of libraries inside"
  grep -q TEXTREL <<<"$dynamic" && fails "$file" "code is changed when it is loaded"
  grep -q 'GNU_STACK.*RWE' <<<"$header" && fails "$file" "the stack is executable"
  grep -q __stack_chk_fail <<<"$symbols" || fails "$file" "no stack protector"
  [ "$(marks_entries "$file")" -gt 50 ] || fails "$file" "function entries are not marked"
  grep -qF -e "$ROOT" -e "$BUILD" "$file" && fails "$file" "names the folder it was built in"
  return 0
}

# Calls whose sizes are checked when they are made (_FORTIFY_SOURCE).
checks_sizes() {
  local symbols
  symbols=$(readelf -W --dyn-syms "$1")
  grep -qE 'UND __[a-z]+_chk(@|$)' <<<"$symbols" || fails "$1" "checks no sizes of calls"
}

failed=
mapfile -t found < <(programs)
# All programs and libraries are looked at.
printf '%s\n' "${found[@]}" | sed 's|.*/||; s|\.so\..*||' | sort |
  diff - <(printf '%s\n' libvexnumkr libvexnumkr-numbers vexnumkr vexnumkr-host)
for file in "${found[@]}"; do
  check "$file"
  case "$file" in
    # The compiler checks where it knows a size, which is in these; the others are compiled as they are.
    */libvexnumkr.so.* | */bin/vexnumkr) checks_sizes "$file" ;;
  esac
done
[ -z "$failed" ]

not grep -rlF -e "$ROOT" -e "$BUILD" "$PREFIX"
