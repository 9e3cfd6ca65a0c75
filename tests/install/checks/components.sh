# Every installed file is in one component of the installation, which is that of a package.

for component in runtime development tools host documentation; do
  cmake --install "$BUILD" --prefix "$WORK/$component" --component "$component" >/dev/null
  (cd "$WORK/$component" && find . ! -type d -printf '%P\n') >>installed
done
sort installed >parts
(cd "$PREFIX" && find . ! -type d -printf '%P\n') | sort >whole
diff whole parts

# What a component is for.
(cd "$WORK/runtime" && find . ! -type d -printf '%P\n' | sort) >runtime.txt
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
libdir=${LIBDIR#"$PREFIX/"}
diff - runtime.txt <<TEXT
$libdir/libvexnumkr.so.${version%%.*}
$libdir/libvexnumkr.so.$version
TEXT
test -x "$WORK/host/bin/vexnumkr-host"
test -e "$WORK/tools/share/vexnumkr/schema/postgresql/rechte.sql"
