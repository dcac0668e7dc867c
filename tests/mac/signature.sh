#!/usr/bin/env bash
# signature.sh SOURCE BUILD: signing is the last that happens to what the Mach-O check built, and
# happens again when Info.plist or a picture changes, and only then. It is a stand-in that notes what
# it sealed, which is every file of the bundle. BUILD is left configured as the Mach-O check does it.
set -euo pipefail
source=$1
build=$2
bundle=$build/Trelvan.vst
work=$build/signature
log=$work/log
export TMPDIR=$work/temporary  # as in machocheck.sh
rm -rf "$TMPDIR"
mkdir -p "$TMPDIR"
restore() {
  cmake -S "$source" -B "$build" -U TRELVAN_CODESIGN -U CMAKE_PROJECT_Trelvan_INCLUDE \
    >/dev/null 2>&1 || true
}
trap restore EXIT

# Called as codesign is, with the bundle as its last argument.
{
  echo '#!/usr/bin/env bash'
  printf 'find "${!#}" -type f -exec cksum {} + | sort >"%s/seal"\n' "$work"
} >"$work/codesign"
chmod +x "$work/codesign"
quietly() { "$@" >"$log" 2>&1 || { tail -n 100 "$log"; exit 1; }; }
configure() {
  echo "set(PROJECT_VERSION $1)" >"$work/version.cmake"
  quietly cmake -S "$source" -B "$build" -D TRELVAN_CODESIGN="$work/codesign" \
    -D CMAKE_PROJECT_Trelvan_INCLUDE="$work/version.cmake"
}
# All that writes into the bundle.
build() { quietly cmake --build "$build" --target Trelvan trelvan_artwork; }
expect() {
  local what=$1
  shift
  if "$@"; then echo "ok    $what"; else echo "WRONG $what"; exit 1; fi
}
sealed() {
  find "$bundle" -type f -exec cksum {} + | sort | cmp -s - "$work/seal"
}
version() { grep -q "<string>$1</string>" "$bundle/Contents/Info.plist"; }

rm -f "$work/seal"
configure 1.2.3
build
expect "Info.plist has the version" version 1.2.3
expect "the bundle is signed, and nothing is written into it afterwards" sealed
rm "$work/seal"
configure 1.2.3
build
expect "nothing has changed: there is nothing to do" grep -q 'no work to do' "$log"
expect "and nothing is signed" test ! -e "$work/seal"
configure 1.2.4
build
expect "Info.plist has the new version" version 1.2.4
expect "the bundle is signed again" sealed
rm "$work/seal"
rm "$bundle/Contents/Resources/bmp00128.png"
build
expect "a picture is made again" test -s "$bundle/Contents/Resources/bmp00128.png"
expect "and the bundle is signed after that" sealed
