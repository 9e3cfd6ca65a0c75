# Completion for vexnumkr-host and vexnumkr-host-sample in bash.

_vexnumkr_host() {
  local cur prev words cword split
  _init_completion -s || return
  case $prev in
    --connection-file | --create-sample) _filedir ;;
    --tour) _filedir -d ;;
    --application) mapfile -t COMPREPLY < <(compgen -W '1 2' -- "$cur") ;;
    --connection)
      mapfile -t COMPREPLY < <(compgen -W 'Driver=' -- "$cur")
      compopt -o nospace
      ;;
    --user | --date | --scale) ;;
    *)
      $split && return
      mapfile -t COMPREPLY < <(compgen -W '--connection --connection-file --application --user --date
        --create-sample --scale --tour --dark --help --version' -- "$cur")
      ;;
  esac
} && complete -F _vexnumkr_host vexnumkr-host vexnumkr-host-sample
