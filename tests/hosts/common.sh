# What the host tests share: a private home, a screen without a display, checks that print PASS or
# FAIL, and the end of everything that was started. Sourced with the build folder as the script's
# first argument.
set -uo pipefail

tests=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
host_name=$(basename "$0" .sh)
failures=0
started=()  # process ids, ended by number at the end

if [ $# -lt 1 ] || [ ! -d "$1" ]; then
  echo "usage: $0 BUILD-FOLDER" >&2
  exit 2
fi
build=$(cd "$1" && pwd)

# A statement, and whether it holds.
pass() { echo "PASS $host_name: $1"; }
fail() {
  echo "FAIL $host_name: $1"
  failures=$((failures + 1))
}

# check STATEMENT COMMAND...: what the command says is shown only where it fails. The command runs
# in this shell: what it starts is known at the end.
check() {
  local statement=$1
  shift
  if "$@" >"$work/said" 2>&1; then
    pass "$statement"
  else
    fail "$statement"
    tail -n 20 "$work/said" | sed 's/^/  /'
    return 1
  fi
}

# Nothing after this statement makes sense without it.
give_up() {
  fail "$1"
  exit 1
}

needs() {
  local program
  for program in "$@"; do
    command -v "$program" >/dev/null ||
      give_up "$program is not installed (tests/hosts/install.sh installs it)"
  done
}

# end_process ID: ends a process of the list, by force where it does not end within two seconds.
end_process() {
  local process left=()
  kill "$1" 2>/dev/null
  for _ in 1 2 3 4 5 6 7 8 9 10; do
    kill -0 "$1" 2>/dev/null || break
    sleep 0.2
  done
  kill -KILL "$1" 2>/dev/null
  wait "$1" 2>/dev/null
  for process in "${started[@]}"; do [ "$process" = "$1" ] || left+=("$process"); done
  started=("${left[@]}")
}

end_everything() {
  local status=$? at
  trap - EXIT
  # The last one first: a host before the screen that it draws on.
  for ((at = ${#started[@]} - 1; at >= 0; at--)); do end_process "${started[at]}"; done
  if [ -n "${KEEP_WORK:-}" ]; then echo "kept: $work"; else rm -rf "$work"; fi
  [ "$status" = 0 ] && [ "$failures" = 0 ]
  exit $?
}

work=$(mktemp -d "${TMPDIR:-/tmp}/trelvan-$host_name-XXXXXX")
trap end_everything EXIT
trap 'exit 130' INT TERM
mkdir -p "$work"/{home/.config,home/.cache,home/.local/share,run,nothing,vst}
chmod 700 "$work/run"

# The hosts' own world: no preferences of the user, no session bus, no other plug-ins.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_CACHE_HOME="$work/home/.cache"
export XDG_DATA_HOME="$work/home/.local/share" XDG_RUNTIME_DIR="$work/run" LC_ALL=C.UTF-8
export DBUS_SESSION_BUS_ADDRESS=disabled: LV2_PATH="$work/nothing" LADSPA_PATH="$work/nothing"
export VST3_PATH="$work/nothing"
unset DISPLAY GDK_SCALE

# A copy of the bundle in a folder of its own, as a user would put it there. The binary is
# back-dated: Ardour takes a scan made in the same second for outdated.
needs python3 g++
[ -d "$build/Trelvan.vst/Contents" ] || give_up "$build holds no Trelvan.vst: build it first"
cp -r "$build/Trelvan.vst" "$work/vst/"
module=$(find "$work/vst" -name Trelvan.so | head -n 1)
[ -n "$module" ] || give_up "the bundle holds no Trelvan.so"
touch -d '1 minute ago' "$module"
export VST_PATH="$work/vst" LXVST_PATH="$work/vst"
# The LV2 bundle too, for those who look for it: lv2_world sets where.
lv2_world() {
  [ -d "$build/trelvan.lv2/Resources" ] || give_up "$build holds no trelvan.lv2: build it first"
  mkdir -p "$work/lv2"
  cp -r "$build/trelvan.lv2" "$work/lv2/"
  export LV2_PATH="$work/lv2"
}

sound() { python3 "$tests/sound.py" "$@"; }

g++ -std=c++20 -O2 -ffp-contract=off -I "$tests/../.." -o "$work/reference" \
  "$tests/reference.cpp" "$tests/../support/reference.cpp" || give_up "reference.cpp does not build"
# reference_render IN OUT RATE BEFORE AFTER: what the rule makes of a stereo file;
# see reference.cpp.
reference_render() {
  sound raw "$1" | "$work/reference" "$3" "$4" "$5" | sound wav "$3" "$2"
}

# widen_render IN OUT OPTIONS...: what our own host makes of it.
widen_render() {
  local in=$1 out=$2
  shift 2
  timeout 60 "$build/widen" --quiet --force --plugin "$module" "$@" "$in" -o "$out"
}

# Sets DISPLAY to a screen that nobody else has.
start_screen() {
  needs Xvfb xwininfo
  timeout -k 5 600 Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp \
    3>"$work/display" >/dev/null 2>&1 &
  started+=($!)
  for _ in $(seq 50); do
    [ -s "$work/display" ] && break
    sleep 0.1
  done
  [ -s "$work/display" ] || give_up "no screen: Xvfb did not start"
  DISPLAY=:$(cat "$work/display")
  export DISPLAY
}

# To be taken whole before it is searched: a pipe that closes early is a failure here.
all_windows() { timeout 5 xwininfo -root -tree; }

# wait_for SECONDS COMMAND...: until it succeeds.
wait_for() {
  local end=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.25
  done
}

finish() {
  [ "$failures" = 0 ] && exit 0
  exit 1
}
