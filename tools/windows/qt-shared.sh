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
  configure_with mingw-shared.cmake -DBUILD_SHARED_LIBS=ON -DFEATURE_sql_odbc=OFF \
    -DFEATURE_sql_sqlite=ON -DFEATURE_system_sqlite=OFF
}

install_it() { install_files; }
