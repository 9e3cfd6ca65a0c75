#!/usr/bin/env bash
# The Windows of a test run: a Wine prefix and a display of its own, with a window manager.
#
#   tests/automation/wine/world.sh start FILE [DLL...]   makes it in a temporary folder and registers
#                                                        the DLLs; FILE then says how to enter it
#   tests/automation/wine/world.sh stop FILE             ends it and removes all of it
#
# It also ends when the process that has started this script (ctest) ends in any other way.
set -euo pipefail
action=${1:?} file=${2:?}

# Ends what runs in the folder's world, and removes the folder.
end() {
  local folder=$1 pid
  # shellcheck source=/dev/null
  [ ! -e "$folder/environment" ] || (. "$folder/environment" && wineserver -k && wineserver -w) || true
  for pid in $(cat "$folder/pids" 2>/dev/null); do
    kill "$pid" 2>/dev/null || true
    tail --pid="$pid" -f /dev/null
  done
  rm -rf "$folder"
}

# Prints the environment in which Wine runs, for the shell.
describe() {
  cat <<END
export HOME='$1/home' WINEPREFIX='$1/prefix' WINEDEBUG=-all LC_ALL=C.UTF-8 DISPLAY=:$2
# No installers of what Wine lacks, no menus outside, and no window that waits after a crash.
export WINEDLLOVERRIDES='mscoree=d;mshtml=d;winemenubuilder.exe=d;winedbg.exe=d'
unset QT_QPA_PLATFORM QT_SCALE_FACTOR QT_FONT_DPI QT_STYLE_OVERRIDE WINEARCH WINELOADER WINESERVER
END
}

# Starts a display with a window manager, and prints its number.
start_display() {
  local folder=$1 number
  mkfifo "$folder/number"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/number" >/dev/null 2>&1 &
  echo $! >>"$folder/pids"
  read -r number <"$folder/number"
  DISPLAY=:$number HOME=$folder/home openbox >/dev/null 2>&1 &
  echo $! >>"$folder/pids"
  echo "$number"
}

start() {
  local folder=$1 dll
  mkdir "$folder/home"
  local display
  display=$(start_display "$folder")
  [ -n "$display" ] || return 1
  describe "$folder" "$display" >"$folder/environment"
  # shellcheck source=/dev/null
  . "$folder/environment"
  wineboot -i
  # Somebody is always there, so that no program has to wait for services to end and begin. It
  # reads what nobody writes.
  wine cmd /c more <>"$folder/number" >/dev/null 2>&1 &
  echo $! >>"$folder/pids"
  for dll in "${@:2}"; do wine regsvr32 /s "Z:${dll//\//\\}"; done
}

case "$action" in
  start)
    folder=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-wine-XXXXXX")
    # Before anything is started, so that nothing outlives a run that is killed meanwhile.
    setsid "$0" watch "$file" "$folder" "$PPID" >/dev/null 2>&1 </dev/null &
    # In a process of its own, where the first failure ends it.
    if ! "$0" make "$folder" "${@:3}" >"$folder/log" 2>&1 </dev/null; then
      cat "$folder/log"
      end "$folder"
      exit 1
    fi
    mkdir -p "$(dirname "$file")"
    cp "$folder/environment" "$file"
    echo "export VEXNUMKR_WORLD='$folder'" >>"$file"
    ;;
  stop)
    # shellcheck source=/dev/null
    end "$(. "$file" && echo "$VEXNUMKR_WORLD")"
    rm -f "$file"
    ;;
  make) start "${@:2}" ;;
  watch)
    folder=${3:?} parent=${4:?}
    tail --pid="$parent" -f /dev/null
    [ ! -d "$folder" ] || end "$folder"
    ;;
  *)
    sed -n '4,7p' "$0" >&2
    exit 2
    ;;
esac
