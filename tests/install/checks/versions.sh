# There is one version: that of the CMake project.

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' "$ROOT/CMakeLists.txt")
[ -n "$version" ]
major=${version%%.*}

is() {
  [ "$1" = "$2" ] || {
    echo "$3: $1, not $2"
    exit 1
  }
}

is "$(vexnumkr-host --version)" "vexnumkr-host $version" "the host"
is "$(sed -n 's/^Version: //p' "$LIBDIR/pkgconfig/vexnumkr.pc")" "$version" pkg-config
is "$(sed -n 's/.*VERSION_TEXT "\(.*\)"/\1/p' "$PREFIX/include/vexnumkr/version.h")" "$version" version.h
is "$(readlink "$LIBDIR/libvexnumkr.so.$major")" "libvexnumkr.so.$version" "the library's file"

# The SPDX document names this version, and is one.
if command -v jq >/dev/null; then
  is "$(jq -r '.packages[] | select(.name == "vexnumkr") | .versionInfo' \
    "$PREFIX/share/doc/vexnumkr/vexnumkr.spdx.json")" "$version" SPDX
else
  echo "skipped: jq is not installed"
fi

# The newest section of the change log is this version's, and so is that of the Debian packages.
newest=$(sed -n 's/^## //p' "$ROOT/CHANGELOG.md" | head -n 1)
grep -qxE "$version \((unreleased|20[0-9]{2}-[01][0-9]-[0-3][0-9])\)" <<<"$newest" || {
  echo "the newest section of CHANGELOG.md is: $newest"
  exit 1
}
is "$(sed -n '1s/^vexnumkr (\(.*\)) .*/\1/p' "$ROOT/debian/changelog")" "$version" debian/changelog
# What the manuals call the files for Windows.
for named in $(grep -rhoE 'VEXNumKr-[0-9.]+-' "$ROOT/docs" "$ROOT/README.md" | sort -u); do
  is "$named" "VEXNumKr-$version-" docs
done
# The library's package and soname change with the major version, and with nothing else.
grep -qx "Package: libvexnumkr$major" "$ROOT/debian/control"
