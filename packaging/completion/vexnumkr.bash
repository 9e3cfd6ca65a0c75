# Completion for vexnumkr in bash: asks the program itself what may follow.

_vexnumkr() {
  local cur prev words cword split
  _init_completion -s || return
  case $prev in
    --connection-file | --numbers-from | --ranges-from | --output | -o)
      _filedir
      return
      ;;
    --application)
      mapfile -t COMPREPLY < <(compgen -W '1 2' -- "$cur")
      return
      ;;
  esac
  $split && return
  local word command=()
  for word in "${words[@]:1:cword-1}"; do
    [[ $word == -* ]] && break
    command+=("$word")
  done
  local offered
  offered=$("${words[0]}" "${command[@]}" --help 2>/dev/null |
    awk '/^Befehle:/ { on = 1 } /^$/ { on = 0 } on && /^  [a-z]/ { print $1 }
      match($0, /^ +(-[a-zA-Z],)?--[a-z-]+/) { sub(/^ +(-[a-zA-Z],)?/, ""); sub(/ .*/, ""); print }')
  mapfile -t COMPREPLY < <(compgen -W "$offered" -- "$cur")
  case ${command[0]-} in
    import | diff) [[ $cur == -* ]] || _filedir ;;
  esac
} && complete -F _vexnumkr vexnumkr
