#!/usr/bin/env bash
# Builds the module, widen and the tests of the sound for Linux on arm64, runs them in an emulator,
# and shows that a file comes out of both processors' widen with the same bytes. It installs the
# cross compiler and the emulator; Debian's arm64 libraries it only unpacks below build/arm64, from
# where this machine's apt gets its own packages: 90 MB, beside 70 of compiler and emulator.
# Usage: tools/arm64.sh [--as-released]
# (all of it optimised as in a release; else what sounds alone is, since nothing more is compared)
set -euo pipefail
cd "$(dirname "$0")/.."
case "$*" in
  "") build_type=Emulated ;;
  --as-released) build_type=Release ;;
  *) sed -n 's/^# Usage: /usage: /p' tools/arm64.sh >&2; exit 2 ;;
esac
command -v apt-get >/dev/null || { echo "tools/arm64.sh needs Debian's packages" >&2; exit 1; }
[ "$(uname -m)" = x86_64 ] || { echo "tools/arm64.sh compares with x86-64" >&2; exit 1; }

tools/build.sh release --tests widen Trelvan  # to compare with
tools/packages.sh g++-aarch64-linux-gnu qemu-user
build=build/arm64
sysroot=$PWD/$build/sysroot
log=$build/build.log

# The libraries that the product and its tests are linked with, by the list of what is installed for
# them here; and those of the compiler itself.
libraries() {
  grep -oE '\b[a-z0-9.-]+-dev\b' tools/dependencies.sh | grep -vE 'clang|gnustep|musl|^dpkg'
  echo libc6-dev "libstdc++-$(aarch64-linux-gnu-g++ -dumpversion | cut -d. -f1)-dev"
}

# An apt of its own that knows one architecture and no installed package.
unpack_libraries() {
  local apt=$PWD/$build/apt archive list
  list=$(libraries)
  # Of another list, as before a library was added to it, they are not all.
  [ "$(cat "$sysroot/.complete" 2>/dev/null)" != "$list" ] || return 0
  echo "fetching the arm64 libraries"
  rm -rf "$sysroot" "$apt"
  mkdir -p "$sysroot" "$apt/state/lists/partial" "$apt/cache/archives/partial"
  : >"$apt/status"
  local options=(-qq -o "Dir::State=$apt/state" -o "Dir::State::status=$apt/status"
    -o "Dir::Cache=$apt/cache" -o APT::Architecture=arm64 -o APT::Architectures::=arm64
    -o APT::Sandbox::User=root)
  # shellcheck disable=SC2086 # words
  { apt-get "${options[@]}" update &&
      apt-get "${options[@]}" install --download-only -y --no-install-recommends $list
  } >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
  for archive in "$apt"/cache/archives/*.deb; do dpkg-deb -x "$archive" "$sysroot"; done
  rm -rf "$apt"
  echo "$list" >"$sysroot/.complete"
}

mkdir -p "$build"
unpack_libraries
tests=(kerneltest sharedratestest)
echo "building (arm64)"
{
  cmake -G Ninja -S . -B "$build" -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/aarch64-linux-gnu.cmake \
    -DCMAKE_SYSROOT="$sysroot" -DCMAKE_BUILD_TYPE="$build_type" -DTRELVAN_TESTS=ON &&
    cmake --build "$build" --target Trelvan widen "${tests[@]}"
} >"$log" 2>&1 || { tail -n 40 "$log" >&2; exit 1; }

XDG_CONFIG_HOME=$(mktemp -d)  # nobody's stored defaults
export XDG_CONFIG_HOME
trap 'rm -rf "$XDG_CONFIG_HOME"' EXIT
emulated() {
  qemu-aarch64 -L "$sysroot" "$@"
}
for test in "${tests[@]}"; do
  echo "arm64: $test"
  emulated "$build/tests/bin/$test" --gtest_brief=1
done

# Noise of three seconds, and what each widen makes of it, at rest, off and gliding. Files in double
# precision show every bit.
work=$XDG_CONFIG_HOME
python3 - "$work/noise.wav" <<'PYTHON'
import random, sys, wave
random.seed(1)
with wave.open(sys.argv[1], "wb") as file:
    file.setparams((2, 2, 44100, 0, "NONE", ""))
    file.writeframes(random.randbytes(3 * 44100 * 4))
PYTHON
printf '%s\n' '0.5 width 90%' '0.5 baseFreq 60Hz' '0.5 emphasis 80%' '2 width 20%' >"$work/moves"
wider() {
  local into=$1
  shift
  local n=0 settings
  for settings in "--width 90%" "--width 40% --base-freq 31Hz --emphasis 70% --double" \
    "--process off" "--automate $work/moves"; do
    # shellcheck disable=SC2086 # words
    "$@" $settings --format double "$work/noise.wav" -o "$work/$into$((++n)).wav" \
      >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
  done
}
wider here build/release/widen
wider there emulated "$build/widen"
for n in 1 2 3 4; do cmp "$work/here$n.wav" "$work/there$n.wav"; done
echo "arm64: widen's files are the same as here, byte by byte"
