#!/usr/bin/env bash
# Copies the files of this checkout that git knows, as they are now, into a new folder; dates, rights and
# order are the same wherever and whenever that is done.
#
#   tools/debian/export.sh FOLDER
set -euo pipefail
# Those who run this have masks of their own.
umask 022

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
mkdir "$1"
git ls-files -z | while IFS= read -r -d '' file; do
  if [ -e "$file" ]; then printf '%s\0' "$file"; fi
done | tar --create --null --files-from - --owner=0 --group=0 --mode=u+rw,go=rX,go-w \
  --mtime="$(dpkg-parsechangelog -S Date)" | tar --extract -C "$1"
