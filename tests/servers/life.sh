# What the fixtures that start servers have in common: a temporary folder that lives as long as the test
# run. To be read by a script that defines
#   start_all FOLDER   false, with the reason told, where something does not start
#   stop_all FOLDER    stops everything there and removes the folder
#   usage              tells how the script is called

# live PREFIX start|stop|watch FILE [FOLDER PID] -- COMMAND...: does what the script was asked for; COMMAND
# calls the script again, up to its action. FILE names the folder while it lives; whatever happens to the
# process that has started the script, watching stops everything.
live() {
  local prefix=$1 action=$2 file=$3
  shift 3
  local given=()
  while [ "$1" != -- ]; do
    given+=("$1")
    shift
  done
  shift
  local folder
  case "$action" in
    start)
      # Sockets have short names, so this is not the build folder.
      folder=$(mktemp -d "${TMPDIR:-/tmp}/$prefix-XXXXXX")
      chmod 711 "$folder"
      # Before anything is started, so that nothing outlives a run that is killed meanwhile.
      setsid "$@" watch "$file" "$folder" "$PPID" >/dev/null 2>&1 </dev/null &
      if ! start_all "$folder"; then
        stop_all "$folder"
        exit 1
      fi
      mkdir -p "$(dirname "$file")"
      echo "$folder" >"$file"
      ;;
    stop)
      stop_all "$(cat "$file")"
      rm -f "$file"
      ;;
    watch)
      folder=${given[0]:?}
      tail --pid="${given[1]:?}" -f /dev/null
      [ ! -d "$folder" ] || stop_all "$folder"
      ;;
    *)
      usage >&2
      exit 2
      ;;
  esac
}
