#!/usr/bin/env bash
# Builds the Debian packages in a Debian of its own, twice; checks that both are the same and what lintian
# says; installs them in another one, uses them and removes them again.
#
#   tools/debian/test.sh [--packages FOLDER] [KEEP]
#
# Needs root rights and Debian's servers, and takes about 25 minutes. With --packages those that
# tools/debian/build.sh has put into FOLDER are taken, which takes two minutes. The packages are left in the
# folder KEEP, where one is named, with the guided tour's pictures.
set -euo pipefail

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
case "${1:-}" in
  --help | -h)
    sed -n '2,9s/^# \{0,1\}//p' "$tools/test.sh"
    exit 0
    ;;
esac
given=
if [ "${1:-}" = --packages ]; then
  given=$(cd "$2" && pwd)
  shift 2
fi
keep=${1:-}
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

# new_root NAME: a small Debian, nothing else.
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
  inside "$work/$1" apt-get -q update >/dev/null
}

# build FOLDER [VARIABLE=VALUE...]: builds in $work/build at FOLDER.
build() {
  local folder=$1
  shift
  mkdir -p "$work/build$folder"
  cp -a "$work/source" "$work/build$folder/vexnumkr"
  inside "$work/build" env "$@" sh -c "umask \${MASK:-022} && cd '$folder/vexnumkr' &&
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

# Whether an example can be built where only the packages are.
build_a_host() {
  say "a host against the development package"
  inside "$work/build" sh -c 'apt-get -q install -y --no-install-recommends /first/libvexnumkr*.deb &&
    cmake -S /first/vexnumkr/examples/embed -B /tmp/embed && cmake --build /tmp/embed' >"$work/log" 2>&1 ||
    { tail "$work/log" && fail "the example cannot be built"; }
  echo "built"
}

packages=${given:-$work/build/first}
[ -n "$given" ] || build_twice

say "lintian"
lintian --fail-on error,warning --info "$packages"/*.changes

[ -n "$given" ] || build_a_host

say "installing"
new_root use
mkdir "$work/use/debs"
mkdir -m 700 "$work/use/home/kunde"
find "$packages" -maxdepth 1 -name "*.deb" ! -name "*-dbgsym_*" -exec cp {} "$work/use/debs" \;
chown 1000:1000 "$work/use/home/kunde"
inside "$work/use" sh -c 'apt-get -q install -y --no-install-recommends /debs/*.deb libqt6sql6-sqlite \
  fonts-liberation' >"$work/log" 2>&1 || { tail "$work/log" && fail "the packages cannot be installed"; }
(cd "$work/use" && find . -xdev ! -type d | sort) >"$work/installed"
inside "$work/use" sh -c 'dpkg -L $(dpkg-query -W -f "\${Package} " "*vexnumkr*")' | sort >"$work/ours"

say "using"
as_user "$work/use" vexnumkr-host --version
as_user "$work/use" vexnumkr-host --create-sample /home/kunde/firma.db
mkdir "$work/use/home/kunde/rundgang" && chown 1000:1000 "$work/use/home/kunde/rundgang"
as_user "$work/use" vexnumkr-host --connection 'Driver=QSQLITE;Database=/home/kunde/firma.db' \
  --application 2 --user Hoffmann --tour /home/kunde/rundgang
as_user "$work/use" vexnumkr-host-sample --tour /home/kunde/rundgang >/dev/null
pictures=$(find "$work/use/home/kunde/rundgang" -name '*.png' -size +2k | wc -l)
[ "$pictures" -ge 3 ] || fail "the guided tour has left $pictures pictures"

say "removing"
inside "$work/use" sh -c 'apt-get -q purge -y $(dpkg-query -W -f "\${Package} " "*vexnumkr*")' >"$work/log"
# All other files are there still, and none of ours is.
(cd "$work/use" && find . -xdev ! -type d | sort) >"$work/removed"
not_compared='^\./(var/(cache|log|lib/dpkg|lib/apt)|home|tmp|usr/share/(applications/mimeinfo.cache|icons/hicolor/icon-theme.cache))'
diff <(sed 's/^/./' "$work/ours" | comm -13 - "$work/installed" | grep -vE "$not_compared") \
  <(grep -vE "$not_compared" "$work/removed") || fail "removing has changed other files"
rm -rf "$work/use/debs" && mv "$work/use/home/kunde" "$work/kunde"
left=$(find "$work/use" -xdev -name '*vexnumkr*' -print)
[ -z "$left" ] || fail "left behind: $left"
echo "nothing is left"

if [ -n "$keep" ]; then
  mkdir -p "$keep"
  cp "$packages"/*.* "$keep"
  cp -r "$work/kunde/rundgang" "$keep"
fi
say "all is well"
