#!/usr/bin/env bash
# One test of the build. Usage: buildtest.sh CASE SOURCE TOOLKIT CMAKE
set -euo pipefail
case=$1
source=$2
toolkit=$3
cmake=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "$1" >&2; exit 1; }

# As on a machine that has no more than the build needs, and without a preset.
configure() {
  "$cmake" -S "$source" -B "$work/build" -G Ninja -DTRELVAN_TOOLKIT_SOURCE="$toolkit" \
    -DTRELVAN_TESTS=OFF -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON "$@" >"$work/said" 2>&1 ||
    { cat "$work/said" >&2; exit 1; }
  grep '"command":' "$work/build/compile_commands.json" >"$work/commands"
  grep -F " -c $source/" "$work/commands" | grep -vF " -c $toolkit/" >"$work/ours"
  grep -F " -c $toolkit/" "$work/commands" >"$work/theirs"
}

# What tools/build.sh asks CMake for, with doubles for all that it calls, on the named system.
asked_for() {
  local system=$1
  shift
  mkdir -p "$work/bin" "$work/tree"
  cp -r "$source/tools" "$work/tree"
  printf '#!/bin/sh\n' >"$work/tree/tools/dependencies.sh"
  printf '#!/bin/sh\necho "$@" >>"%s"\n' "$work/asked" >"$work/bin/cmake"
  printf '#!/bin/sh\necho %s\n' "$system" >"$work/bin/uname"
  chmod +x "$work/bin/cmake" "$work/bin/uname"
  rm -f "$work/asked"
  PATH=$work/bin:$PATH "$work/tree/tools/build.sh" "$@" >"$work/said"
  grep -e --preset "$work/asked" | tr ' ' '\n'
}
# The last one of an option counts.
expect_last() { [ "$(grep "^-D$1=" | tail -n 1)" = "-D$1=$2" ] || fail "$1 is not $2"; }

case $case in
  NeedsNeitherPresetNorTests)
    configure
    ninja -C "$work/build" -t query Trelvan widen >"$work/targets" ||
      fail "there is no plug-in or no widen to build"
    if grep -E " -c $source/(tests|bench|fuzz)/" "$work/commands"; then
      fail "tests are compiled"
    fi
    ;;
  MakesWarningsErrorsWhereItIsAsked)
    configure
    if grep -e ' -Werror' "$work/ours"; then fail "warnings are errors for who did not ask"; fi
    configure -DTRELVAN_WERROR=ON
    if grep -ve ' -Werror ' "$work/ours"; then fail "a warning in this would be let through"; fi
    if grep -e ' -Werror ' "$work/theirs"; then fail "the toolkit is not ours to mend"; fi
    ;;
  LetsWarningsStopTheTestsOnly)
    asked_for Linux release Trelvan widen | expect_last TRELVAN_WERROR OFF
    asked_for Linux release --tests | expect_last TRELVAN_WERROR ON
    ;;
  LetsNoWarningStopAMac)
    asked_for Darwin release --tests | expect_last TRELVAN_WERROR OFF
    asked_for Darwin asan --tests | expect_last TRELVAN_WERROR OFF
    ;;
  *)
    fail "no such test: $case"
    ;;
esac
