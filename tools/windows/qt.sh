#!/usr/bin/env bash
# Builds Qt for Windows, to be linked statically, from Debian's own source package of the Qt that is
# installed here, unless that has been done before.
#
#   tools/windows/qt.sh [--where] [--shared] [--arch x86_64|i686]
#
# Prints the folder of the built Qt as its last line; with --where only that, building nothing, and
# fails when it is not there. With --shared it is a Qt of shared libraries. Builds are kept in
# $VEXNUMKR_WINDOWS_CACHE, or ~/.cache/vexnumkr.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
usage() { sed -n '2,9s/^# \{0,1\}//p' "$here/qt.sh"; }

only_where='' kind=''
if [ "${1:-}" = --where ]; then
  only_where=yes
  shift
fi
if [ "${1:-}" = --shared ]; then
  kind=-shared
  shift
fi
# shellcheck source=architecture.sh
. "$here/architecture.sh"

version=$(dpkg-query -W -f '${source:Version}' "qt6-base-dev:$(dpkg --print-architecture)")
cache=${VEXNUMKR_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vexnumkr}

# fetch PACKAGE VERSION FOLDER: its sources, with package lists of this call's own, so that the machine's
# stay as they are.
fetch() {
  local apt=$work/apt
  mkdir -p "$apt/lists/partial" "$apt/cache"
  local release
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  {
    echo "deb-src http://deb.debian.org/debian $release main"
    echo "deb-src http://deb.debian.org/debian-security $release-security main"
  } >"$apt/sources.list"
  local options=(-q -o Dir::Etc::SourceList="$apt/sources.list" -o Dir::Etc::SourceParts=/dev/null
    -o Dir::State::Lists="$apt/lists" -o Dir::Cache="$apt/cache" -o APT::Sandbox::User=root)
  apt-get "${options[@]}" update
  (cd "$work" && apt-get "${options[@]}" source --download-only "$1=$2")
  dpkg-source -x "$work/$1"_*.dsc "$3"
}

# configure_with TOOLCHAIN OPTION...: without what no dialog and no host of these tests needs. No folder of
# this machine gets into what is linked with it.
configure_with() {
  local off=(network dbus vulkan icu printsupport tabletevent concurrent xml testlib
    sql_mysql sql_psql zstd androiddeployqt qmake)
  local features=()
  local feature
  for feature in "${off[@]}"; do features+=("-DFEATURE_$feature=OFF"); done
  local launcher=()
  if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  fi
  cmake -S "$work/source" -B "$work/build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$here/$1" -DVEXNUMKR_ARCH="$arch" \
    -DCMAKE_INSTALL_PREFIX=/qt -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_C_FLAGS="-ffile-prefix-map=$work=/qt" -DCMAKE_CXX_FLAGS="-ffile-prefix-map=$work=/qt" \
    -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -q DEB_HOST_MULTIARCH)/cmake" \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
    -DINPUT_opengl=no "${features[@]}" "${launcher[@]}" "${@:2}"
}

configure() {
  configure_with mingw.cmake -DBUILD_SHARED_LIBS=OFF -DFEATURE_sql_odbc=ON -DFEATURE_sql_sqlite=OFF
}

# What it was made of goes along, for whoever hands it on.
install_files() {
  DESTDIR=$work/install cmake --install "$work/build" >/dev/null
  cp "$work/source/debian/copyright" "$work/install/qt"
  echo "$version" >"$work/install/qt/source-version"
}

install_it() {
  install_files
  # Qt Core asks the linker to export a function; a library that it is part of need not show that.
  "$arch-w64-mingw32-objcopy" --remove-section .drectve "$work/install/qt/lib/libQt6Core.a"
}

steps=(configure_with configure install_files install_it) toolchain=("$here/mingw.cmake")
# shellcheck source=qt-shared.sh
if [ -n "$kind" ]; then . "$here/qt-shared.sh"; fi

# What is done to the sources is part of the name: a change builds anew.
recipe=$({ declare -f "${steps[@]}" && cat "${toolchain[@]}"; } | sha256sum | cut -c1-8)
qt=$cache/qt-${version//[^A-Za-z0-9.]/_}-$arch$kind-$recipe

if [ -n "$only_where" ]; then
  [ -e "$qt/complete" ] || exit 1
  echo "$qt"
  exit 0
fi

if [ ! -e "$qt/complete" ]; then
  mkdir -p "$cache"
  exec 9>"$qt.lock"
  flock 9
fi
if [ ! -e "$qt/complete" ]; then
  # Where it is known beforehand, a compiler's cache finds again what an interrupted build has made.
  work=$cache/building-$(basename "$qt")
  rm -rf "$work"
  mkdir "$work"
  trap 'rm -rf "$work"' EXIT
  fetch qt6-base "$version" "$work/source"
  configure
  cmake --build "$work/build"
  install_it
  rm -rf "$qt"
  mv "$work/install/qt" "$qt"
  touch "$qt/complete"
fi
echo "$qt"
