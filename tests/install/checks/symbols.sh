# What leaves a library is what its list in src/component names; hosts are bound to it. A new symbol belongs
# into the list, one that is gone breaks hosts and needs a new major version.
#
# A list is made by: nm -DC --defined-only LIBRARY | grep ' T ' | cut -d' ' -f2- | LC_ALL=C sort -u
# What hosts compile for themselves as well (tables of virtual functions and types) may be there or not.

exported() { nm -DC --defined-only "$1" | cut -d' ' -f2- | sort -u; }

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
for library in vexnumkr vexnumkr-numbers; do
  exported "$LIBDIR/lib$library.so" >now
  diff "$ROOT/src/component/$library.symbols" <(grep '^T' now)
  # Nothing else leaves it.
  not grep -vE 'VEXNUMKR_[0-9.]+$' now
  # A symbol of this kind would keep the library loaded.
  not grep '^u ' now
  # Hosts and packages know the library by its major version.
  readelf -d "$LIBDIR/lib$library.so" | grep -F "soname: [lib$library.so.${version%%.*}]"
done

# Who only draws numbers needs nothing that shows windows.
readelf -d "$LIBDIR/libvexnumkr-numbers.so" >needed
not grep -E 'Qt6(Gui|Widgets)' needed
