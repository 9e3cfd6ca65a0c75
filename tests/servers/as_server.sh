# shellcheck shell=bash disable=SC2154
# Whom the servers run as: they refuse to run as root, so for root they run as the user that their
# package made, "$server_user".

# The first of these users that there is.
first_user() {
  local user
  for user in "$@"; do
    if id -u "$user" >/dev/null 2>&1; then
      echo "$user"
      return
    fi
  done
}

as_server() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u "$server_user" -- "$@"
  else
    "$@"
  fi
}

# Makes a folder the server's.
take_folder() {
  mkdir -p "$1"
  if [ "$(id -u)" -eq 0 ]; then chown "$server_user" "$1"; fi
}
