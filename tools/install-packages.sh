#!/usr/bin/env bash
# Installs the Debian packages that are missing for a purpose, and nothing when none is.
#
#   tools/install-packages.sh run           to build and run the stand-alone host
#   tools/install-packages.sh test          to build and test everything
#   tools/install-packages.sh package       to build and test the Debian packages and the manuals
#   tools/install-packages.sh windows       to build VEXNumKr.dll and the library for Windows
#   tools/install-packages.sh windows-test  to test that under Wine
#   tools/install-packages.sh windows-package  to make the archive and the installer of it
#
# Needs root or sudo only when something is missing.
set -euo pipefail

build=(cmake g++ libcli11-dev libxlsxwriter-dev ninja-build nlohmann-json3-dev qt6-base-dev)
runtime=(fonts-liberation libqt6sql6-sqlite)
testing=(g++-mingw-w64-x86-64-posix libbenchmark-dev libgtest-dev libsqlite3-dev
  qt6-base-private-dev)
# What checks what is installed.
installed=(appstream bash-completion binutils desktop-file-utils file jq man-db pkgconf zsh)
manuals=(fonts-liberation pandoc weasyprint)
packaging=(debhelper debootstrap dpkg-dev lintian)
# The database servers and clusters of the tests, and the drivers to reach them and ODBC.
engines=(libqt6sql6-psql libqt6sql6-mysql libqt6sql6-odbc odbc-postgresql libsqliteodbc odbcinst
  postgresql mariadb-server mariadb-client galera-4 rsync socat)
# The cross compiler, and what Qt for Windows and its SQLite are built from and with.
windows=(dpkg-dev g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix libsqlite3-0 libwine mingw-w64-tools
  tcl)
# Wine with what its ODBC leads to, a display with a window manager, and a keyboard for it.
wine=(debootstrap fonts-wine googletest libsqliteodbc odbcinst openbox sqlite3 unixodbc wine wine64
  xdotool xvfb)
# Of use where the distribution has them: the formatter of the sources, the compiler for the
# fuzzers, a display of another kind, German texts of Qt itself.
formatter=(clang-format-14)
# The compiler with the fuzzer, and its sanitizers.
fuzzer=(clang libclang-rt-dev)
display=()
[ -n "${WAYLAND_DISPLAY:-}" ] && display=(qt6-wayland)
translations=(qt6-translations-l10n)

case "${1:-}" in
  run)
    needed=("${build[@]}" "${runtime[@]}")
    welcome=("${display[@]}" "${translations[@]}")
    ;;
  test)
    needed=("${build[@]}" "${runtime[@]}" "${testing[@]}" "${engines[@]}" "${installed[@]}")
    welcome=("${formatter[@]}" "${fuzzer[@]}")
    ;;
  package)
    needed=("${build[@]}" "${manuals[@]}" "${packaging[@]}")
    welcome=()
    ;;
  windows-package)
    needed=("${manuals[@]}" faketime jq msitools unzip uuid-runtime wixl zip)
    welcome=()
    ;;
  windows)
    needed=("${build[@]}" "${windows[@]}")
    welcome=()
    ;;
  windows-test)
    needed=("${build[@]}" "${windows[@]}" "${wine[@]}")
    welcome=()
    ;;
  *)
    echo "usage: tools/install-packages.sh run|test|package|windows|windows-test|windows-package" >&2
    exit 2
    ;;
esac

is_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Prints those of the packages given that are not installed, one a line.
missing() {
  local package
  for package in "$@"; do
    is_installed "$package" || echo "$package"
  done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "Root rights are needed for: $*" >&2
    exit 1
  fi
}

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  echo "This is no Debian; not installing: ${needed[*]}" >&2
  exit 0
fi

mapfile -t needed < <(missing "${needed[@]}")
[ "${#needed[@]}" -gt 0 ] || exit 0

echo "Installing what is missing: ${needed[*]}"
export DEBIAN_FRONTEND=noninteractive
as_root apt-get -q update
mapfile -t welcome < <(missing "${welcome[@]}")
for package in "${welcome[@]}"; do
  if apt-cache show "$package" >/dev/null 2>&1; then needed+=("$package"); fi
done
as_root apt-get -q install -y --no-install-recommends "${needed[@]}" </dev/null
