# What leaves the library is what src/component/vexnumkr.symbols lists; hosts are bound to it. A new
# symbol belongs into the list, one that is gone breaks hosts and needs a new major version.
#
# The list is made by: nm -DC --defined-only LIBRARY | cut -d' ' -f2- | LC_ALL=C sort -u

exported() { nm -DC --defined-only "$1" | cut -d' ' -f2- | sort -u; }

exported "$LIBDIR/libvexnumkr.so" >now
diff "$ROOT/src/component/vexnumkr.symbols" now

# A symbol of this kind would keep the library loaded.
not grep '^u ' now

# Hosts and packages know the library by its major version.
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
readelf -d "$LIBDIR/libvexnumkr.so" | grep -F "soname: [libvexnumkr.so.${version%%.*}]"
