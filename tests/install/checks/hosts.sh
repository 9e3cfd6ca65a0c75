# The examples are built against what is installed, and run: with CMake, with pkg-config, and loading the
# library when they run.

flags=$(sed -n 's/^VEXNUMKR_SANITIZE:BOOL=ON$/-fsanitize=address,undefined/p' "$BUILD/CMakeCache.txt")
export CXXFLAGS=$flags CMAKE_PREFIX_PATH=$PREFIX PKG_CONFIG_PATH=$LIBDIR/pkgconfig
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME=$WORK/config ASAN_OPTIONS=detect_leaks=0

vexnumkr-host --create-sample "$WORK/firma.db" >/dev/null
connection="Driver=QSQLITE;Database=$WORK/firma.db"

shows_dialog() { [ "$("$1" "$connection" Becker --demo)" = "Der Dialog ist geschlossen." ]; }

echo "with CMake"
cp -r "$ROOT/examples/embed" .
cmake -G Ninja -S embed -B by-cmake -DCMAKE_BUILD_TYPE=Release
cmake --build by-cmake
shows_dialog by-cmake/vexnumkr-embed-example

echo "with pkg-config"
# Qt itself comes from CMake or pkg-config, whichever there is; here its flags are read from the build.
qt_flags=$(grep -o -- '-isystem [^ "]*' by-cmake/build.ninja | sort -u | tr '\n' ' ')
read -ra compile < <(echo "$flags" "$qt_flags" "$(pkg-config --cflags vexnumkr)")
read -ra link < <(pkg-config --libs vexnumkr)
c++ -std=c++20 -O1 -fPIC "${compile[@]}" embed/main.cpp \
  -o by-pkg-config "${link[@]}" -lQt6Widgets -lQt6Gui -lQt6Core
shows_dialog ./by-pkg-config

echo "without linking"
cp -r "$ROOT/examples/run-time" .
cmake -G Ninja -S run-time -B by-loading
cmake --build by-loading
readelf -d by-loading/vexnumkr-run-time-example >linked
not grep -E 'Qt|libvexnumkr' linked
status=0
by-loading/vexnumkr-run-time-example "Driver=QSQLITE;Database=/fehlt.db" Becker >said 2>&1 || status=$?
[ "$status" -eq 1 ]
grep "unable to open database file" said
grep "^vexnumkr $(pkg-config --modversion vexnumkr)$" said

echo "without a window, and without Qt's own headers"
cmake -G Ninja -S "$ROOT/tests/install/numbers" -B by-numbers
cmake --build by-numbers
by-numbers/numbers

echo "what is not there is not found"
mkdir missing
refuses() {
  printf 'cmake_minimum_required(VERSION 3.25)\nproject(Missing LANGUAGES CXX)\nfind_package(vexnumkr %s)\n' \
    "$1 REQUIRED" >missing/CMakeLists.txt
  not cmake -S missing -B missing/build >said 2>&1
  grep "$2" said
}
refuses 3 'version: 2\.'
refuses '2 COMPONENTS dialog gibtesnicht' gibtesnicht
