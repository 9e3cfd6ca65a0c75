#!/usr/bin/env bash
# Builds the Debian packages in a Debian of its own, twice; checks that both are the same and what lintian
# says; builds hosts against them in another one; installs them in a third, uses them and removes them again.
#
#   tools/debian/test.sh [--packages FOLDER] [KEEP [PICTURES]]
#
# Needs root rights and Debian's servers, and takes about 25 minutes. With --packages those that
# tools/debian/build.sh has put into FOLDER are taken, which takes five minutes. The packages are left in the
# folder KEEP, where one is named, and the guided tour's pictures in PICTURES.
set -euo pipefail

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
usage() { sed -n '2,9s/^# \{0,1\}//p' "$tools/test.sh"; }
refuse() {
  usage >&2
  exit 2
}

given=
case "${1:-}" in
  --help | -h)
    usage
    exit 0
    ;;
  --packages)
    [ -n "${2:-}" ] || refuse
    compgen -G "$2/*.changes" >/dev/null || {
      echo "There are no packages in $2; tools/debian/build.sh makes them." >&2
      exit 2
    }
    given=$(cd "$2" && pwd)
    shift 2
    ;;
esac
[ $# -le 2 ] || refuse
for folder in "$@"; do
  case "$folder" in
    '' | -*) refuse ;;
  esac
done
keep=${1:-} pictures=${2:-}
if [ "$(id -u)" -ne 0 ]; then
  echo "Root rights are needed for a Debian of its own." >&2
  exit 1
fi
cache=${VEXNUMKR_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vexnumkr}
export LC_ALL=C.UTF-8
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
clean=$cache/debian-$release.tar

"$tools/../install-packages.sh" package
work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-debian-test-XXXXXX")
# What is mounted lives in namespaces that are gone by then.
trap 'rm -rf --one-file-system "$work"' EXIT

say() { echo "== $*"; }
fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# inside ROOT COMMAND...: runs it there, with /proc and /dev for as long as it runs.
inside() {
  local root=$1
  shift
  unshare --mount --pid --fork bash -c '
    root=$1; shift
    mount -t proc proc "$root/proc"; mount --rbind /dev "$root/dev"
    exec chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
      DEBIAN_FRONTEND=noninteractive "$@"' - "$root" "$@"
}

# as_user ROOT COMMAND...: the same for somebody without rights, with a home.
as_user() {
  local root=$1
  shift
  inside "$root" chroot --userspec=1000:1000 / env HOME=/home/kunde XDG_RUNTIME_DIR=/home/kunde \
    QT_QPA_PLATFORM=offscreen "$@"
}

# new_root NAME: a small Debian with one user, nothing else.
new_root() {
  if [ ! -e "$clean" ]; then
    mkdir -p "$cache"
    debootstrap --variant=minbase "$release" "$work/fresh" http://deb.debian.org/debian >"$work/log"
    # Nothing that is installed there is to be started.
    printf '#!/bin/sh\nexit 101\n' >"$work/fresh/usr/sbin/policy-rc.d"
    chmod +x "$work/fresh/usr/sbin/policy-rc.d"
    tar -C "$work/fresh" -cf "$clean.new" . && mv "$clean.new" "$clean"
    rm -rf "$work/fresh"
  fi
  mkdir "$work/$1"
  tar -C "$work/$1" -xf "$clean"
  cp /etc/resolv.conf "$work/$1/etc/"
  mkdir -m 700 "$work/$1/home/kunde"
  chown 1000:1000 "$work/$1/home/kunde"
  inside "$work/$1" apt-get -q update >/dev/null
}

# install_in ROOT WHAT PACKAGE...: WHAT is said where that fails.
install_in() {
  local root=$1 what=$2
  shift 2
  inside "$root" apt-get -q install -y --no-install-recommends "$@" >"$work/log" 2>&1 || {
    tail "$work/log"
    fail "$what cannot be installed"
  }
}

# install_packages_in ROOT PACKAGE...: all of ours, as the README says, and others.
install_packages_in() {
  local root=$1
  shift
  mkdir -p "$root/dist/debian"
  cp "$packages"/*.deb "$root/dist/debian"
  local ours=("$root"/dist/debian/*.deb)
  install_in "$root" "the packages" "${ours[@]#"$root"}" "$@"
}

# build FOLDER [VARIABLE=VALUE...]: builds in $work/build at FOLDER.
build() {
  local folder=$1
  shift
  mkdir -p "$work/build$folder"
  cp -a "$work/source" "$work/build$folder/vexnumkr"
  inside "$work/build" env DEB_BUILD_OPTIONS=noautodbgsym "$@" sh -c "umask \${MASK:-022} && cd '$folder/vexnumkr' &&
    dpkg-buildpackage --no-sign --build=full" >"$work/log" 2>&1 || {
    tail -n 40 "$work/log"
    fail "the packages cannot be built"
  }
}

# What the packages are made of, and that it is the same twice.
build_twice() {
  say "building"
  "$tools/export.sh" "$work/source"
  new_root build
  mkdir "$work/build/tmp/needs"
  cp -r "$work/source/debian" "$work/build/tmp/needs/"
  inside "$work/build" sh -c 'apt-get -q install -y --no-install-recommends build-essential &&
    cd /tmp/needs && apt-get -q build-dep -y --no-install-recommends ./' >"$work/log" 2>&1 ||
    { tail "$work/log" && fail "what building takes cannot be installed"; }
  build /first
  build /somewhere/else TZ=Asia/Tokyo LC_ALL=C MASK=027
  for file in "$work"/build/first/*.deb "$work"/build/first/*.tar.xz; do
    cmp "$file" "$work/build/somewhere/else/$(basename "$file")" || fail "built twice, it differs"
    echo "the same twice: $(basename "$file")"
  done
}

# in_home COMMAND...: as the user, where hosts are built; what it prints is shown when it fails.
in_home() {
  as_user "$work/hosts" env --chdir=/home/kunde "$@" >"$work/log" 2>&1 || {
    tail "$work/log"
    fail "$*"
  }
}

# build_host NAME FOLDER
build_host() {
  in_home cmake -S "$2" -B "$1"
  in_home cmake --build "$1"
}

# says TEXT: whether what ran in the user's home has printed this line.
says() { grep -qxF "$1" "$work/log" || fail "it does not say: $1"; }

# Hosts are built where only the packages are and what those suggest, from what the packages bring, and run.
build_hosts() {
  say "hosts against the packages"
  local examples=/usr/share/doc/vexnumkr/examples
  new_root hosts
  install_packages_in "$work/hosts" cmake g++ make libqt6sql6-sqlite fonts-liberation
  cp -r "$tools/../../tests/install/numbers" "$work/hosts/usr/src/numbers"
  build_host numbers /usr/src/numbers
  in_home numbers/numbers
  echo "a host without a window, and without Qt's own headers"
  build_host run-time $examples/run-time
  in_home sh -c '! run-time/vexnumkr-run-time-example "Driver=QSQLITE;Database=/fehlt.db" Becker'
  says "vexnumkr $version"
  echo "one that loads the library when it runs"
  install_in "$work/hosts" "Qt's headers" qt6-base-dev
  build_host embed $examples/embed
  in_home vexnumkr-host --create-sample firma.db
  in_home embed/vexnumkr-embed-example 'Driver=QSQLITE;Database=firma.db' Becker --demo
  says "Der Dialog ist geschlossen."
  echo "one that shows the dialog"
  rm -rf --one-file-system "$work/hosts"
}

version=$(dpkg-parsechangelog -l "$tools/../../debian/changelog" -S Version)
packages=${given:-$work/build/first}
[ -n "$given" ] || build_twice

say "lintian"
lintian --fail-on error,warning --info "$packages"/*.changes

say "hardening"
for package in "$packages"/*.deb; do dpkg-deb --extract "$package" "$work/unpacked"; done
rm -rf "$work/unpacked/usr/lib/debug"
# The folder that tools/debian/build.sh builds in, or the one above.
built_in=/first/vexnumkr
[ -z "$given" ] || built_in=/vexnumkr-debian-
not() { ! "$@"; }
export -f not
PREFIX=$work/unpacked/usr ROOT=$built_in BUILD=$built_in \
  bash -euo pipefail "$tools/../../tests/install/checks/hardening.sh" || fail "what is hardened elsewhere is not here"
echo "as it has to be"

build_hosts

say "installing"
new_root use
install_packages_in "$work/use" libqt6sql6-sqlite fonts-liberation
(cd "$work/use" && find . -xdev ! -type d | sort) >"$work/installed"
inside "$work/use" sh -c 'dpkg -L $(dpkg-query -W -f "\${Package} " "*vexnumkr*")' | sort >"$work/ours"

say "using"
as_user "$work/use" vexnumkr-host --version
as_user "$work/use" vexnumkr-host --create-sample /home/kunde/firma.db
connection='Driver=QSQLITE;Database=/home/kunde/firma.db'
mkdir "$work/use/home/kunde/rundgang" && chown 1000:1000 "$work/use/home/kunde/rundgang"
as_user "$work/use" vexnumkr-host --connection "$connection" \
  --application 2 --user Hoffmann --tour /home/kunde/rundgang
as_user "$work/use" vexnumkr-host-sample --tour /home/kunde/rundgang >/dev/null
painted=$(find "$work/use/home/kunde/rundgang" -name '*.png' -size +2k | wc -l)
[ "$painted" -ge 3 ] || fail "the guided tour has left $painted pictures"

# The program for the command line, on the same company.
run() { as_user "$work/use" env VEXNUMKR_CONNECTION="$connection" vexnumkr "$@"; }
[ "$(run --version)" = "vexnumkr $version" ] || fail "vexnumkr --version says $(run --version)"
drawn=$(run draw --application 1 --user Hoffmann --key RE)
[ "$drawn" = 260264 ] || fail "the first invoice has the number $drawn"
run check --application 1 | tail -n 1
for file in copyright vexnumkr.spdx.json; do
  grep -q libxlsxwriter "$work/use/usr/share/doc/vexnumkr/$file" || fail "$file does not name what vexnumkr is made with"
done

say "removing"
inside "$work/use" sh -c 'apt-get -q purge -y $(dpkg-query -W -f "\${Package} " "*vexnumkr*")' >"$work/log"
# All other files are there still, and none of ours is.
(cd "$work/use" && find . -xdev ! -type d | sort) >"$work/removed"
not_compared='^\./(var/(cache|log|lib/dpkg|lib/apt)|home|tmp|usr/share/(applications/mimeinfo.cache|icons/hicolor/icon-theme.cache))'
diff <(sed 's/^/./' "$work/ours" | comm -13 - "$work/installed" | grep -vE "$not_compared") \
  <(grep -vE "$not_compared" "$work/removed") || fail "removing has changed other files"
rm -rf "$work/use/dist" && mv "$work/use/home/kunde" "$work/kunde"
left=$(find "$work/use" -xdev -name '*vexnumkr*' -print)
[ -z "$left" ] || fail "left behind: $left"
echo "nothing is left"

if [ -n "$keep" ]; then
  mkdir -p "$keep"
  cp "$packages"/*vexnumkr*_* "$keep"
fi
if [ -n "$pictures" ]; then
  mkdir -p "$pictures"
  cp "$work"/kunde/rundgang/*.png "$pictures"
fi
say "all is well"
