#!/usr/bin/env bash
# Runs clang-tidy over all of our code but the tests.
# Usage: tools/lint.sh BUILD_FOLDER [OPTION...]
# (a folder configured with clang; options for clang-tidy)
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
shift
tools/sources.sh '*.cpp' |
  grep -zE '^(plugin|effect|presetsystem|editor|platform|formats|host)/' | grep -zv '/mac/' |
  xargs -0 -P "$(getconf _NPROCESSORS_ONLN)" -n 4 clang-tidy -p "$build" --quiet "$@" 2>"$build/lint.log" ||
  { cat "$build/lint.log" >&2; exit 1; }
