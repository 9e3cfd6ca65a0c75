# Every installed file is in one component of the installation, which is that of a package; the terms are in
# two of them.

for component in runtime numbers development tools host documentation; do
  cmake --install "$BUILD" --prefix "$WORK/$component" --component "$component" >/dev/null
  (cd "$WORK/$component" && find . ! -type d -printf '%P\n') >>installed
done
sort -u installed >parts
(cd "$PREFIX" && find . ! -type d -printf '%P\n') | sort >whole
diff whole parts

sort installed | uniq -d | diff - <(printf 'share/doc/vexnumkr/%s\n' LICENSE NOTICES.txt vexnumkr.spdx.json)

# What a component is for.
(cd "$WORK" && cat <(cd numbers && find . ! -type d -printf '%P\n') \
  <(cd runtime && find . ! -type d -printf '%P\n') | sort) >runtime.txt
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
libdir=${LIBDIR#"$PREFIX/"}
diff - runtime.txt <<TEXT
$libdir/libvexnumkr-numbers.so.${version%%.*}
$libdir/libvexnumkr-numbers.so.$version
$libdir/libvexnumkr.so.${version%%.*}
$libdir/libvexnumkr.so.$version
TEXT
test -x "$WORK/host/bin/vexnumkr-host"
test -x "$WORK/tools/bin/vexnumkr"
test -e "$WORK/tools/share/vexnumkr/schema/postgresql/rechte.sql"
