#!/usr/bin/env bash
# Prints the sources that are ours, each with a zero byte after it: those of version control, and
# without it, as in an unpacked archive, all that lie in our folders.
# Usage: tools/sources.sh PATTERN...   (of names: '*.cpp')
set -euo pipefail
cd "$(dirname "$0")/.."
if [ -e .git ] && git rev-parse >/dev/null 2>&1; then
  exec git ls-files -z "$@"
fi
names=(-name "$1")
shift
for pattern in "$@"; do names+=(-o -name "$pattern"); done
# From what lies here, as version control names it: `.` would stand before every path.
find -- * \( -name build -o -name '.*' \) -prune -o -type f \( "${names[@]}" \) -print0
