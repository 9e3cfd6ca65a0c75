#!/usr/bin/env bash
# Prints the SPDX document of an archive for Windows: its files, and what is linked into the library.
#
#   tools/windows/spdx.sh FOLDER VERSION ARCH QT_SOURCE_VERSION
#
# packaging/windows/parts.tsv lists what is linked in. The date is that of SOURCE_DATE_EPOCH.
set -euo pipefail

folder=$1 version=$2 arch=$3 qt=$4
parts=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../packaging/windows" && pwd)/parts.tsv
created=$(date -u -d "@${SOURCE_DATE_EPOCH:-$(date +%s)}" +%Y-%m-%dT%H:%M:%SZ)

# One file of the archive a line: its name, SHA-1 and SHA-256.
checksums() {
  (cd "$folder" && find . -type f -printf '%P\n' | LC_ALL=C sort | while IFS= read -r file; do
    printf '%s\t%s\t%s\n' "$file" "$(sha1sum <"$file" | cut -d' ' -f1)" "$(sha256sum <"$file" | cut -d' ' -f1)"
  done)
}

# The licence of a part that SPDX has no name for.
icc=$(sed -n '/^Copyright International Color Consortium/,/^shall not/p' "$(dirname "$parts")/qt-weitere.txt")
digest=$(checksums | sha256sum | cut -c1-32)
jq -n --arg digest "$digest" --arg version "$version" --arg arch "$arch" --arg qt "$qt" --arg created "$created" \
  --rawfile parts "$parts" --rawfile files <(checksums) --arg icc "$icc" '
  def lines: split("\n") | map(select(. != "") | split("\t"));
  def id: gsub("[^A-Za-z0-9.]+"; "-");
  def part: {
    name: .[0], SPDXID: ("SPDXRef-" + (.[0] | id)),
    versionInfo: (if .[2] == "qt6-base" then $qt else "as in " + .[2] end),
    downloadLocation: "NOASSERTION", filesAnalyzed: false, licenseConcluded: .[1],
    licenseDeclared: .[1], copyrightText: "NOASSERTION"};
  {
    spdxVersion: "SPDX-2.3", dataLicense: "CC0-1.0", SPDXID: "SPDXRef-DOCUMENT",
    name: "VEXNumKr-\($version)-\($arch)",
    documentNamespace: "https://vexnumkr.example/spdx/VEXNumKr-\($version)-\($arch)-\($digest)",
    creationInfo: {created: $created, creators: ["Organization: The Vexal Nummernkreise developers"]},
    packages: ([{
      name: "VEXNumKr", SPDXID: "SPDXRef-VEXNumKr", versionInfo: $version,
      downloadLocation: "NOASSERTION", filesAnalyzed: false, licenseConcluded: "MIT",
      licenseDeclared: "MIT", copyrightText: "2026 The Vexal Nummernkreise developers"}]
      + ($parts | lines | map(part))),
    hasExtractedLicensingInfos: [
      {licenseId: "LicenseRef-Public-Domain", name: "Public domain",
        extractedText: "Its author has placed it in the public domain; qt-weitere.txt has the words."},
      {licenseId: "LicenseRef-ICC", name: "Licence of the ICC for sRGB2014.icc", extractedText: $icc}],
    files: ($files | lines | map({
      fileName: ("./" + .[0]), SPDXID: ("SPDXRef-File-" + (.[0] | id)),
      checksums: [{algorithm: "SHA1", checksumValue: .[1]}, {algorithm: "SHA256", checksumValue: .[2]}],
      licenseConcluded: "NOASSERTION", copyrightText: "NOASSERTION"})),
    relationships: ([{
      spdxElementId: "SPDXRef-DOCUMENT", relationshipType: "DESCRIBES", relatedSpdxElement: "SPDXRef-VEXNumKr"}]
      + ($files | lines | map({spdxElementId: "SPDXRef-VEXNumKr", relationshipType: "CONTAINS",
          relatedSpdxElement: ("SPDXRef-File-" + (.[0] | id))}))
      + ($parts | lines | map({spdxElementId: "SPDXRef-VEXNumKr", relationshipType: "STATIC_LINK",
          relatedSpdxElement: ("SPDXRef-" + (.[0] | id))})))
  }'
