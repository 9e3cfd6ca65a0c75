# How tools/windows/qt.sh builds a Qt of shared libraries, as hosts have one, with its driver for SQLite.
# shellcheck shell=bash disable=SC2154
steps+=(fetch_sqlite) toolchain+=("$here/mingw-shared.cmake")

# Debian's sources of Qt are without those of SQLite that its driver is built from; Debian's SQLite gives
# them. They are fetched in the version that is installed here.
fetch_sqlite() {
  local sqlite=$work/source/src/3rdparty/sqlite
  fetch sqlite3 "$(dpkg-query -W -f '${source:Version}' libsqlite3-0)" "$work/sqlite"
  mkdir "$work/sqlite/build" "$sqlite"
  (cd "$work/sqlite/build" && ../configure --quiet && make --silent sqlite3.c)
  cp "$work/sqlite/build"/sqlite3.[ch] "$sqlite"
}

configure() {
  fetch_sqlite
  local off=(network dbus vulkan icu printsupport tabletevent concurrent xml testlib
    sql_mysql sql_psql sql_odbc system_sqlite zstd androiddeployqt qmake)
  local features=()
  local feature
  for feature in "${off[@]}"; do features+=("-DFEATURE_$feature=OFF"); done
  local launcher=()
  if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  fi
  cmake -S "$work/source" -B "$work/build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$here/mingw-shared.cmake" -DVEXNUMKR_ARCH="$arch" \
    -DCMAKE_INSTALL_PREFIX="$work/install" -DCMAKE_BUILD_TYPE=Release \
    -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -q DEB_HOST_MULTIARCH)/cmake" \
    -DBUILD_SHARED_LIBS=ON -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
    -DINPUT_opengl=no -DFEATURE_sql_sqlite=ON "${features[@]}" "${launcher[@]}"
}

install_it() { cmake --install "$work/build" >/dev/null; }
