#!/usr/bin/env bash
# Runs a program on an X server of its own with a fixed screen, and ends both when the time is up.
# Usage: [TRELVAN_SCREEN=1024x768x24] with-xvfb.sh SECONDS PROGRAM [ARGUMENT...]
# Several may run at once.
set -uo pipefail
seconds=$1
shift
folder=$(mktemp -d)
server=
program=
end_both() {
  [ -z "$program" ] || kill "$program" 2>/dev/null
  [ -z "$server" ] || kill "$server" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$folder"
}
trap end_both EXIT
trap 'exit 143' TERM INT HUP

# The server picks a free display number itself and writes it down. No access from outside this
# machine or user's sockets is needed; -noreset keeps it when its last client goes.
mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 "${TRELVAN_SCREEN:-1024x768x24}" -nolisten tcp -noreset 3<>"$folder/display" \
  >"$folder/log" 2>&1 &
server=$!
exec 4<>"$folder/display"
if ! read -r -t 20 -u 4 number || [ -z "$number" ]; then
  echo "the X server did not start:" >&2
  cat "$folder/log" >&2
  exit 1
fi
exec 4>&-
export DISPLAY=:$number
export TMPDIR=$folder  # what a program that is ended in the middle leaves behind goes with it
unset XAUTHORITY WAYLAND_DISPLAY GDK_SCALE
timeout --kill-after=5 "$seconds" "$@" &
program=$!
wait "$program"
status=$?
program=
[ "$status" = 124 ] && echo "with-xvfb: ended after $seconds s" >&2
exit "$status"
