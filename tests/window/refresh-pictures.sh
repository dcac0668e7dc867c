#!/usr/bin/env bash
# Takes the reference pictures of the window anew, into pictures/ beside this script. Look at each
# before you keep it.
# Usage: tests/window/refresh-pictures.sh [BUILD_FOLDER [NAMES]]
# (build/release; it must have been built with its tests) NAMES: a pattern, '*_2x' for those at a
# scale of 2; default: all.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=${1:-$here/../../build/release}
program=$build/tests/bin/windowpicturestest
module=$(echo "$build"/Trelvan.vst/Contents/*-linux/Trelvan.so)
[ -x "$program" ] || { echo "$program is not built" >&2; exit 1; }
TRELVAN_MODULE=$(realpath "$module") TRELVAN_PICTURES=$here/pictures \
  FONTCONFIG_FILE=$here/fonts.conf \
  TRELVAN_REFRESH_PICTURES=1 \
  "$here/with-xvfb.sh" 120 "$program" --gtest_filter="*LookAsTheyDid/${2:-*}" --gtest_brief=1 >/dev/null
echo "taken: $(ls "$here/pictures" | wc -l) pictures in $here/pictures"
