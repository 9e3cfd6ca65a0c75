#!/usr/bin/env bash
# Makes Wine for 32-bit programs available in a small Debian 13 for i386 of its own, in the cache that
# tools/windows/qt.sh uses too: Debian 12's own i386 packages cannot be relied on to go together with
# those of a 64-bit machine. Needs root rights.
#
#   tools/windows/wine-i386.sh
#
# Prints, as its last line, a folder with the commands wine, wineboot and wineserver. They see
# /tmp, /proc, /dev and this project where they are, and nothing else of the machine.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cache=${VEXNUMKR_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vexnumkr}
root=$cache/wine-i386
commands=$cache/wine-i386-commands

if [ "$(id -u)" -ne 0 ]; then
  echo "Root rights are needed for a Debian of its own." >&2
  exit 1
fi

# Runs a program in that Debian. What is mounted for it is gone when it ends.
make_command() {
  cat >"$commands/$1" <<TEXT
#!/bin/sh -e
[ -n "\${VEXNUMKR_INSIDE:-}" ] || VEXNUMKR_INSIDE=yes exec unshare --mount "\$0" "\$@"
for folder in /proc /dev /tmp '$project'; do
  mkdir -p '$root'"\$folder"
  mount --rbind "\$folder" '$root'"\$folder"
done
exec chroot '$root' env --chdir=/tmp $1 "\$@"
TEXT
  chmod +x "$commands/$1"
}

if [ ! -e "$root/complete" ]; then
  rm -rf "$root"
  mkdir -p "$root"
  debootstrap --arch=i386 --variant=minbase trixie "$root" http://deb.debian.org/debian
  # Nothing that is installed there is to be started.
  printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
  chmod +x "$root/usr/sbin/policy-rc.d"
  DEBIAN_FRONTEND=noninteractive chroot "$root" apt-get -q install -y --no-install-recommends \
    fonts-liberation fonts-wine libsqliteodbc odbcinst unixodbc wine wine32 </dev/null
  touch "$root/complete"
fi
mkdir -p "$commands"
for name in wine wineboot wineserver; do make_command "$name"; done
echo "$commands"
