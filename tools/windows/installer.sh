#!/usr/bin/env bash
# Makes the installer for Windows of a folder: of the library, which it registers, and of the texts in the
# folders below.
#
#   tools/windows/installer.sh FOLDER VERSION ARCH FILE
#
# The same files of the same dates give the same installer. Its dates are that of SOURCE_DATE_EPOCH.
set -euo pipefail

source=$(cd "$1" && pwd) version=$2 arch=$3 file=$4
wxs=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../packaging/windows" && pwd)/VEXNumKr.wxs
case "$arch" in
  x86_64) bits=64 win64=yes program_files=ProgramFiles64Folder wixl_arch=x64 template=x64 ;;
  i686) bits=32 win64=no program_files=ProgramFilesFolder wixl_arch=x86 template=Intel ;;
esac

work=$(mktemp -d "${TMPDIR:-/tmp}/vexnumkr-installer-XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$source"

# An identifier that is the same for the same text: id TEXT.
id() { uuidgen --sha1 --namespace @dns --name "vexnumkr $1" | tr '[:lower:]' '[:upper:]'; }

# name PATH: as the installer's tables call it.
name() { printf 'Text.%s' "${1//[^A-Za-z0-9.]/_}"; }

# below PATH KIND: the files or folders in it, a line each.
below() { find "$1" -mindepth 1 -maxdepth 1 -type "$2" | LC_ALL=C sort; }

# directory PATH: the element for a folder, in which its files are one component.
directory() {
  local path key='KeyPath="yes" '
  printf '<Directory Id="%s" Name="%s">\n' "$(name "$1")" "$(basename "$1")"
  if [ -n "$(below "$1" f)" ]; then
    printf '<Component Id="%s" Guid="%s" Win64="%s">\n' "$(name "$1/")" "$(id "$1 $arch")" "$win64"
    while IFS= read -r path; do
      printf '<File Id="%s" Name="%s" Source="%s" %s/>\n' "$(name "$path")" "$(basename "$path")" "$path" "$key"
      key=
    done < <(below "$1" f)
    echo '</Component>'
    name "$1/" >>"$work/components"
    echo >>"$work/components"
  fi
  while IFS= read -r path; do directory "$path"; done < <(below "$1" d)
  echo '</Directory>'
}

# The texts, as a part of the installer's description.
texts() {
  echo '<?xml version="1.0" encoding="utf-8"?>'
  echo '<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi"><Fragment><DirectoryRef Id="INSTALLDIR">'
  local path
  for path in $(below . d | cut -c3-); do directory "$path"; done
  echo '</DirectoryRef><ComponentGroup Id="Texts">'
  sed 's|.*|<ComponentRef Id="&" />|' "$work/components"
  echo '</ComponentGroup></Fragment></Wix>'
}

texts >"$work/texts.wxs"
# Wixl writes the time of its call and a random identifier into the installer.
TZ=UTC faketime -f "$(TZ=UTC date -d "@$SOURCE_DATE_EPOCH" '+%F %T')" \
  wixl --arch "$wixl_arch" -D Version="$version" -D Bits="$bits" -D Win64="$win64" \
  -D ProgramFiles="$program_files" -D ProductCode="$(id "product $version $arch")" \
  -D UpgradeCode="$(id "upgrade $arch")" -D LibraryGuid="$(id "library $arch")" \
  -o "$work/installer.msi" "$wxs" "$work/texts.wxs"
content=$(find . -type f -exec sha256sum {} + | LC_ALL=C sort -k 2 | cat - "$wxs" | sha256sum | cut -d' ' -f1)
msibuild "$work/installer.msi" -s "Vexal Nummernkreise $version" "Vexal Nummernkreise" "$template;1031" \
  "{$(id "package $version $arch $content")}"
mv "$work/installer.msi" "$file"
