#!/usr/bin/env bash
# Runs the plug-in in real hosts, one script after the other: a PASS or FAIL line a statement, and a
# summary. The status is 0 where all is well.
# Usage: tests/hosts/run.sh BUILD-FOLDER [HOST...]
# A HOST is a script's name without .sh; default: all
set -uo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
all=(qtractor-scan qtractor muse-scan muse-window
  ardour ardour-window ardour-keyboard ardour-window-200
  audacity audacity-window audacity-window-200
  lv2-renders jalv-window ardour-lv2 ardour-lv2-window ardour-lv2-window-200 muse-lv2-window
  qtractor-lv2 audacity-lv2 documented)
# Seconds a script; the longest takes half a minute on an idle machine with two processors, but for
# `documented`, which waits two minutes for Audacity.
limit=300

if [ $# -lt 1 ] || [ ! -d "$1" ]; then
  echo "usage: $0 BUILD-FOLDER [HOST...]; hosts: ${all[*]}" >&2
  exit 2
fi
build=$1
shift
[ $# -gt 0 ] || set -- "${all[@]}"
for name in "$@"; do
  [[ " ${all[*]} " == *" $name "* ]] ||
    { echo "$0: no host is called $name; there are: ${all[*]}" >&2; exit 2; }
done

log=$(mktemp)
trap 'rm -f "$log"' EXIT
failed=()
for name in "$@"; do
  timeout -k 30 "$limit" "$here/$name.sh" "$build" | tee -a "$log"
  status=${PIPESTATUS[0]}
  [ "$status" = 0 ] && continue
  failed+=("$name")
  case $status in
    124 | 137) echo "FAIL $name: ends within $limit seconds" | tee -a "$log" ;;
    1) ;;  # has named what failed
    *) echo "FAIL $name: ended with status $status" | tee -a "$log" ;;
  esac
done

echo "$(grep -c '^PASS ' "$log") passed, $(grep -c '^FAIL ' "$log") failed, in $# host tests"
[ ${#failed[@]} = 0 ] || { echo "failed: ${failed[*]}"; exit 1; }
