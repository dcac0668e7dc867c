#!/usr/bin/env bash
# Builds and installs plug-in and widen, or takes them away again. Without --prefix for everybody in
# /usr/local where root runs it, and else for the user alone, whose plug-in lies where hosts look
# for it in a home folder, and whose manual and presets are in the Documents folder.
# Usage: tools/install.sh --install|--uninstall [--prefix FOLDER]
set -euo pipefail
called_from=${TRELVAN_CALLED_FROM:-$PWD}
cd "$(dirname "$0")/.."
usage() {
  echo "usage: ./run --install|--uninstall [--prefix FOLDER]" >&2
  exit 2
}

action=${1:-}
[[ $action == --install || $action == --uninstall ]] || usage
shift
prefix=""
manual=""
presets=""
while [ $# -gt 0 ]; do
  case $1 in
    --prefix)
      [ -n "${2:-}" ] || usage
      prefix=$2
      shift
      ;;
    --prefix=?*) prefix=${1#--prefix=} ;;
    *) usage ;;
  esac
  shift
done

if [ -n "$prefix" ]; then
  [[ $prefix == /* ]] || prefix=$called_from/$prefix
  [ "$prefix" = / ] || prefix=${prefix%/}
  vst=$prefix/lib/vst
  lv2=$prefix/lib/lv2
elif [ "$(id -u)" = 0 ]; then
  prefix=/usr/local
  vst=$prefix/lib/vst
  lv2=$prefix/lib/lv2
  [ "$(uname -s)" != Darwin ] || vst=/Library/Audio/Plug-Ins/VST
else
  prefix=$HOME/.local
  vst=$HOME/.vst
  lv2=$HOME/.lv2
  [ "$(uname -s)" != Darwin ] || vst=$HOME/Library/Audio/Plug-Ins/VST
  # The folder may have another name in the user's language; without one of the desktop's it is
  # where the manual button looks first.
  documents=$(xdg-user-dir DOCUMENTS 2>/dev/null || true)
  [ -n "$documents" ] && [ "${documents%/}" != "${HOME%/}" ] || documents=$HOME/Documents
  manual=${documents%/}/Orv/Trelvan
  presets=$manual/Presets
fi
: "${manual:=$prefix/share/doc/trelvan}" "${presets:=$prefix/share/trelvan/presets}"

# as_needed COMMAND...: as root only where the folder asks for it.
there=$prefix
while [ ! -e "$there" ]; do there=$(dirname "$there"); done
as_needed() {
  if [ -w "$there" ]; then "$@"; else tools/asroot.sh "$@"; fi
}

if [ "$action" = --uninstall ]; then
  as_needed cmake "-DCMAKE_INSTALL_PREFIX=$prefix" -P cmake/RemoveFiles.cmake >/dev/null
  echo "removed from $prefix what had been installed there"
  exit
fi
targets=(Trelvan widen widen_documents plugin_documents)
[ "$(uname -s)" = Darwin ] || targets+=(TrelvanLv2)
tools/build.sh release "${targets[@]}"
# CMake's list of what it put, which nobody reads: root's of the last time cannot be written over.
rm -f build/release/install_manifest.txt
as_needed env -u DESTDIR "TRELVAN_VST=$vst" "TRELVAN_LV2=$lv2" "TRELVAN_MANUAL=$manual" "TRELVAN_PRESETS=$presets" \
  cmake --install build/release --prefix "$prefix" --strip >/dev/null
echo "plug-in:  $vst/Trelvan.vst"
[ "$(uname -s)" = Darwin ] || echo "as LV2:   $lv2/trelvan.lv2"
[[ :$PATH: == *":$prefix/bin:"* ]] && found= || found=", which is not in your PATH"
echo "widen:    $prefix/bin/widen$found"
echo "presets:  $presets"
[ ! -e "$manual/Trelvan Operation Manual.pdf" ] ||
  echo "manual:   $manual/Trelvan Operation Manual.pdf"
echo "to take them away again:  ./run --uninstall, with the same words"
