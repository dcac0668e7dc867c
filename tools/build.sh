#!/usr/bin/env bash
# Configures a preset and builds targets of it, quietly; what was printed is shown where it fails.
# Usage: tools/build.sh PRESET [--tests] [TARGET...]
# Where TRELVAN_TOOLKIT_SOURCE names a folder with the toolkit's source, that one is built.
set -euo pipefail
called_from=$PWD
cd "$(dirname "$0")/.."
refuse() {
  echo "tools/build.sh: $1" >&2
  echo "usage: tools/build.sh PRESET [--tests] [TARGET...]" >&2
  exit 2
}
preset=${1:-}
grep -qF "\"name\": \"$preset\"" CMakePresets.json || refuse "no preset \"$preset\""
shift
# Warnings are errors for the tests only: a compiler that is newer than those tried must not stop
# who wants to listen. Where the tests were built before it stays so, or all would be built again.
options=(-DTRELVAN_TESTS=OFF -DTRELVAN_BENCHMARKS=OFF -DTRELVAN_FUZZERS=OFF)
[ -f "build/$preset/CMakeCache.txt" ] || options+=(-DTRELVAN_WERROR=OFF)
packages=build
if [ "${1:-}" = --tests ]; then
  shift
  options=(-DTRELVAN_TESTS=ON -DTRELVAN_WERROR=ON)
  [ "$preset" != release ] || options+=(-DTRELVAN_BENCHMARKS=ON)
  packages=test
  # Apple's clang has no libFuzzer and is newer than any that was tried.
  [ "$(uname -s)" != Darwin ] || options+=(-DTRELVAN_FUZZERS=OFF -DTRELVAN_WERROR=OFF)
fi
for target in "$@"; do
  [[ $target != -* ]] || refuse "no option $target"
done
if [ -n "${TRELVAN_TOOLKIT_SOURCE:-}" ]; then
  [[ $TRELVAN_TOOLKIT_SOURCE == /* ]] || TRELVAN_TOOLKIT_SOURCE=$called_from/$TRELVAN_TOOLKIT_SOURCE
  export TRELVAN_TOOLKIT_SOURCE
  options+=(-DTRELVAN_TOOLKIT_SOURCE="$TRELVAN_TOOLKIT_SOURCE")
fi
tools/dependencies.sh "$packages"

build=build/$preset
mkdir -p "$build"
[ -w "$build" ] ||
  { echo "$PWD/$build is somebody else's, and cannot be built in by you" >&2; exit 1; }
log=$build/build.log
quietly() {
  "$@" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
}
[ -f "$build/build.ninja" ] || echo "building ($preset; the first time takes a few minutes)"
quietly cmake --preset "$preset" "${options[@]}"
quietly cmake --build "$build" ${1:+--target "$@"}
