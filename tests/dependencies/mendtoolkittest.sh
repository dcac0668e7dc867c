#!/usr/bin/env bash
# One test of cmake/MendToolkit.cmake and of those who call it.
# Usage: mendtoolkittest.sh CASE SOURCE CMAKE
set -euo pipefail
case=$1
source=$2
cmake=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
toolkit=$work/toolkit

fail() { echo "$1" >&2; exit 1; }

# make_toolkit FOLDER LINE: a folder with as much of the toolkit as CMake asks for, and LINE
# between two others.
make_toolkit() {
  mkdir -p "$1/vstgui/lib"
  touch "$1/vstgui/vstgui.h"
  echo 'add_library(vstgui INTERFACE)' >"$1/vstgui/CMakeLists.txt"
  printf '\taction = [a;b] \\ "c";\n\t%s\n}\n' "$2" >"$1/vstgui/lib/finally.h"
}
mend() { "$cmake" -DTOOLKIT="$toolkit" -P "$source/cmake/MendToolkit.cmake"; }
# All of the file, as only the one line may differ.
expect_line() {
  make_toolkit "$work/expected" "$2"
  cmp "$work/expected/vstgui/lib/finally.h" "$1/vstgui/lib/finally.h" ||
    fail "the file is not as it should be"
}
# configure [OPTION...]: a project that has nothing but the toolkit; what CMake says
# is in $work/said.
configure() {
  mkdir "$work/project"
  printf 'cmake_minimum_required(VERSION 3.25)\nproject(P LANGUAGES NONE)\ninclude(%s)\n' \
    "$source/cmake/Toolkit.cmake" >"$work/project/CMakeLists.txt"
  "$cmake" -S "$work/project" -B "$work/build" -G Ninja "$@" >"$work/said" 2>&1 ||
    { cat "$work/said" >&2; exit 1; }
}

wrong='other.invoke (false);'
mended='other.invoke = false;'

case $case in
  MendsTheLineThatIsWrong)
    make_toolkit "$toolkit" "$wrong"
    mend
    expect_line "$toolkit" "$mended"
    ;;
  LeavesAMendedSourceAsItIs)
    make_toolkit "$toolkit" "$mended"
    touch -t 200101010000 "$toolkit/vstgui/lib/finally.h" "$work/then"
    mend
    expect_line "$toolkit" "$mended"
    [ ! "$toolkit/vstgui/lib/finally.h" -nt "$work/then" ] ||
      fail "the file was written, so all would be built again"
    ;;
  RefusesASourceWithAnotherLine)
    make_toolkit "$toolkit" 'other.invoked = false;'
    if mend 2>"$work/said"; then fail "nothing was refused"; fi
    grep -q "toolkit/vstgui/lib/finally.h" "$work/said" || fail "the file is not named"
    expect_line "$toolkit" 'other.invoked = false;'
    ;;
  RefusesAFolderWithoutTheFile)
    if mend 2>"$work/said"; then fail "nothing was refused"; fi
    grep -q "toolkit/vstgui/lib/finally.h" "$work/said" || fail "the file is not named"
    ;;
  MendsWhatCMakeFetches)
    make_toolkit "$toolkit" "$wrong"
    git -C "$toolkit" init -q
    git -C "$toolkit" add .
    git -C "$toolkit" -c user.name=n -c user.email=e commit -q -m m
    git -C "$toolkit" tag vstgui4_13_3
    # The repository here stands for the one that is named there.
    export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0="url.file://$toolkit.insteadOf"
    GIT_CONFIG_VALUE_0=$(sed -n 's/.*GIT_REPOSITORY \([^ ]*\).*/\1/p' "$source/cmake/Toolkit.cmake")
    export GIT_CONFIG_VALUE_0
    configure -DTRELVAN_TOOLKIT_SOURCE="$work/none"
    expect_line "$work/build/_deps/vstgui-src" "$mended"
    ;;
  TellsHowToMendANamedFolder)
    make_toolkit "$toolkit" "$wrong"
    configure -DTRELVAN_TOOLKIT_SOURCE="$toolkit"
    expect_line "$toolkit" "$wrong"
    tr -s '\n ' ' ' <"$work/said" >"$work/words"  # CMake breaks its lines anywhere
    command=$(grep -o "cmake -DTOOLKIT=$toolkit -P $source/[A-Za-z/]*.cmake" "$work/words") ||
      fail "nothing was said"
    (cd / && "$cmake" ${command#cmake})
    expect_line "$toolkit" "$mended"
    ;;
  KeepsQuietAboutAMendedFolder)
    make_toolkit "$toolkit" "$mended"
    configure -DTRELVAN_TOOLKIT_SOURCE="$toolkit"
    if grep Warning "$work/said"; then fail "something was said"; fi
    ;;
  MendsWhatWasUnpackedBefore)
    mkdir "$work/tree"
    cp -r "$source/cmake" "$source/tools" "$work/tree"
    printf '#!/bin/sh\n' >"$work/tree/tools/packages.sh"  # nothing is installed for a test
    version=$(sed -n 's/^toolkit_version=//p' "$source/tools/dependencies.sh")
    toolkit=$work/tree/.deps/vstgui-$version
    make_toolkit "$toolkit" "$wrong"
    touch "$toolkit/.complete"
    "$work/tree/tools/dependencies.sh" build
    expect_line "$toolkit" "$mended"
    ;;
  *)
    fail "no such test: $case"
    ;;
esac
