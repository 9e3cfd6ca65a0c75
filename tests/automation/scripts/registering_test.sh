#!/usr/bin/env bash
# regsvr32 makes the class known, and takes back all of it.
#
#   registering_test.sh WORLD register|unregister DLL
. "$(dirname "$0")/../wine/steps.sh" "$1"
action=$2 dll="Z:${3//\//\\}"
classes=$VEXNUMKR_WORLD/classes

# Writes all registered classes into a file.
snapshot() {
  local root
  for root in HKLM HKCU; do
    wine reg export "$root\\Software\\Classes" "Z:${folder//\//\\}\\$root.reg" /y >/dev/null 2>&1 ||
      echo "$root has none" | iconv -t UTF-16 >"$folder/$root.reg"
  done
  cat "$folder/HKLM.reg" "$folder/HKCU.reg" | iconv -f UTF-16 -t UTF-8 >"$1"
}

value() { wine reg query "HKCR\\$1" /ve 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_SZ *//p'; }

expect() { [ "$2" = "$(value "$1")" ] || fail "$1 is $(value "$1")"; }

case "$action" in
  register)
    # Wine's script host registers itself when it is first used.
    echo 'WScript.Quit' >"$folder/first.vbs"
    wine cscript //nologo "Z:${folder//\//\\}\\first.vbs"
    snapshot "$classes"
    wine regsvr32 /s "$dll" || fail "regsvr32 ends with $?"
    expect 'VEXNummernkreise.VXNummernkreise\Clsid' '{1799D539-16B2-4FA4-9CE5-48A27AE28092}'
    expect 'CLSID\{1799D539-16B2-4FA4-9CE5-48A27AE28092}\InprocServer32' "$dll"
    expect 'CLSID\{1799D539-16B2-4FA4-9CE5-48A27AE28092}\ProgID' 'VEXNummernkreise.VXNummernkreise'
    expect 'TypeLib\{BED45F65-D524-4953-9E13-277FF3DC5AC5}\2.0' 'Vexal Nummernkreise'
    expect 'Interface\{B0FD56C2-6766-4A4D-B174-3CDD8672C0D1}' '_VXNummernkreise'
    ;;
  unregister)
    wine regsvr32 /s /u "$dll" || fail "regsvr32 ends with $?"
    snapshot "$classes-afterwards"
    diff "$classes" "$classes-afterwards" || fail "the registry differs"
    ;;
esac
