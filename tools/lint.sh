#!/usr/bin/env bash
# Runs clang-tidy over all of our code but the tests.
# Usage: tools/lint.sh BUILD_FOLDER [OPTION...]
# (a folder configured with clang; options for clang-tidy)
set -euo pipefail
cd "$(dirname "$0")/.."
[ -f "${1:-}/compile_commands.json" ] ||
  { sed -n 's/^# Usage: /usage: /p' tools/lint.sh >&2; exit 2; }
build=$1
shift
tools/sources.sh '*.cpp' |
  grep -zE '^(plugin|effect|presetsystem|editor|platform|formats|host)/' | grep -zv '/mac/' |
  xargs -0 -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet "$@" 2>"$build/lint.log" ||
  { cat "$build/lint.log" >&2; exit 1; }
