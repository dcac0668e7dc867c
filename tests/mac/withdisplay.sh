#!/usr/bin/env bash
# Runs a GNUstep program on a display of its own and with user files of its own; its output comes at the end.
# GTEST_FILTER in the environment chooses tests: the application would take arguments for documents.
set -u
work=$(mktemp -d)
trap 'kill "${server:-}" 2>/dev/null; wait "${server:-}" 2>/dev/null; rm -rf "$work"' EXIT

# GNUstep takes the home folder from the password file, not from HOME, so the user's folder is named from there up.
mkdir "$work/GNUstep"
sed "s#=GNUstep#=../../../../../../../..$work/GNUstep#" /etc/GNUstep/GNUstep.conf >"$work/GNUstep.conf"
export GNUSTEP_CONFIG_FILE=$work/GNUstep.conf

Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>"$work/server.log" &
server=$!
for ((i = 0; i < 100; ++i)); do
  [ -s "$work/display" ] && break
  sleep 0.1
done
[ -s "$work/display" ] || { cat "$work/server.log"; exit 1; }

# Into a file: helpers that GNUstep starts stay a while, and a pipe would stay open with them.
DISPLAY=:$(cat "$work/display") timeout -s KILL 100 "$@" >"$work/output" 2>&1
result=$?
cat "$work/output"
exit $result
