#!/usr/bin/env bash
# Installs what Trelvan needs and is missing: Debian's packages, and the toolkit's source below
# .deps/. Silent and quick when all is there.
# Usage: tools/dependencies.sh [--print] [build|test]
# (test adds the tests' tools; --print only says which packages it would install, with their sizes)
# Where TRELVAN_TOOLKIT_SOURCE names a folder with the toolkit's source, none is fetched.
set -euo pipefail
cd "$(dirname "$0")/.."
print=
[ "${1:-}" != --print ] || { print=--print; shift; }
kind=${1:-build}
if [ $# -gt 1 ] || { [ "$kind" != build ] && [ "$kind" != test ]; }; then
  echo "usage: tools/dependencies.sh [--print] [build|test]" >&2
  exit 2
fi
if [ -n "${TRELVAN_TOOLKIT_SOURCE:-}" ] && [ ! -f "$TRELVAN_TOOLKIT_SOURCE/vstgui/vstgui.h" ]; then
  echo "TRELVAN_TOOLKIT_SOURCE: no vstgui/vstgui.h in $TRELVAN_TOOLKIT_SOURCE" >&2
  exit 1
fi
if [ "$(uname -s)" = Darwin ]; then exec tools/dependencies-mac.sh ${print:+--print} "$kind"; fi
umask 022  # as archives and packages have it, whoever unpacks them

build_packages=(
  g++ cmake ninja-build pkg-config
  # widen
  libsndfile1-dev libcli11-dev libasound2-dev libebur128-dev nlohmann-json3-dev
  # the toolkit
  libx11-dev libxcb1-dev libxcb-cursor-dev libxcb-keysyms1-dev
  libxcb-util-dev libxcb-xkb-dev libxkbcommon-dev libxkbcommon-x11-dev
  libcairo2-dev libpango1.0-dev libfontconfig-dev libfreetype-dev libglib2.0-dev
  # the effect as LV2
  lv2-dev
  # artwork, the displays' font, the manual and the manual page
  librsvg2-bin fonts-liberation2 python3 rst2pdf python3-docutils lowdown
  # the demonstration's recording
  sonic-pi-samples
)
test_packages=(
  libgtest-dev libgmock-dev libbenchmark-dev git binutils procps
  # fuzzers, sanitizers, format, lint
  clang-LLVM clang clang-format clang-tidy libclang-rt-LLVM-dev llvm-LLVM
  # shells that complete widen's options
  zsh fish
  # the window, with real events
  xvfb libxcb-xtest0-dev libxcb-damage0-dev libxcb-xfixes0-dev libxcb-res0-dev
  # the desktop portal, on a bus of the tests' own
  dbus-daemon
  # the LV2 bundle: its hosts' library, and what validates it
  lilv-utils sordi
  # what an installation tells software centres; packages
  appstream dpkg-dev lintian
  # the macOS sources: Mach-O bundle (lld links what is sanitized too)
  lld-LLVM libc++-LLVM-dev musl-dev
  # the macOS sources: run on GNUstep
  gobjc++ libgnustep-gui-dev gnustep-backGNUSTEP-cairo fonts-dejavu-core
)

toolkit_version=4.13.3
toolkit_file="vst3sdk_3.7.10.14+~${toolkit_version}.orig-vstgui4.tar.gz"
toolkit_sha256=5a7673c7b22a66086a6749a0c7ff447fcfc4a10d2c2013d58ff1320be4e8456f
toolkit_folder=".deps/vstgui-${toolkit_version}"

# LLVM and GNUSTEP stand for versions that each Debian has one of: its packages without a version in
# their names need them.
read_versions() {
  local needs
  needs=$(LC_ALL=C apt-cache depends --important clang libgnustep-gui-dev 2>/dev/null) || return 1
  llvm=$(sed -n 's/.*Depends: clang-//p' <<<"$needs")
  gnustep=$(sed -n 's/.*Depends: libgnustep-gui//p' <<<"$needs")
  [ -n "$llvm" ] && [ -n "$gnustep" ]
}

# The source comes from the mirror that this machine's apt is set to; apt's helper
# checks the SHA-256.
fetch_toolkit() {
  [ -f "$toolkit_folder/.complete" ] && return 0
  local mirror archive said reasons=
  archive=".deps/$toolkit_file"
  mkdir -p .deps
  if [ ! -f "$archive" ]; then
    apt-get indextargets --format '$(REPO_URI)' | grep -q . || tools/asroot.sh apt-get update -qq
    echo "fetching the toolkit's source"
    for mirror in $(apt-get indextargets --format '$(REPO_URI)' | sort -u); do
      said=$(PATH=$PATH:/usr/lib/apt apt-helper download-file \
        "${mirror%/}/pool/main/v/vst3sdk/$toolkit_file" "$archive" \
        "SHA256:$toolkit_sha256" 2>&1) && break
      reasons+=${reasons:+$'\n'}$(sed -n 's/^[EW]: */  /p' <<<"$said")
      rm -f "$archive" "$archive".*
    done
  fi
  if [ ! -f "$archive" ]; then
    echo "the toolkit's source could not be fetched:" >&2
    printf '%s\n' "${reasons:-  apt knows no mirror}" >&2
    echo "unpacked by hand it does too: TRELVAN_TOOLKIT_SOURCE=FOLDER ./run" >&2
    exit 1
  fi
  echo "$toolkit_sha256  $archive" | sha256sum --check --quiet
  rm -rf "$toolkit_folder"
  mkdir -p "$toolkit_folder"
  tar -xzf "$archive" -C "$toolkit_folder" --strip-components=1 --exclude='*/plugin-bindings'
  rm -f "$archive"
  touch "$toolkit_folder/.complete"
}

command -v apt-get >/dev/null || { echo "no apt here: see README, Dependencies" >&2; exit 1; }
if [ "$kind" = test ]; then
  read_versions || { [ -z "$print" ] && tools/asroot.sh apt-get update -qq && read_versions; } ||
    { echo "apt knows no clang or no libgnustep-gui-dev: see README, Dependencies" >&2; exit 1; }
  test_packages=("${test_packages[@]//LLVM/$llvm}")
  tools/packages.sh ${print:+--print} "${build_packages[@]}" "${test_packages[@]//GNUSTEP/$gnustep}"
else
  tools/packages.sh ${print:+--print} "${build_packages[@]}"
fi
[ -z "$print" ] || exit 0
[ -z "${TRELVAN_TOOLKIT_SOURCE:-}" ] || exit 0
fetch_toolkit
# Each time: it may have been unpacked before.
cmake -DTOOLKIT="$toolkit_folder" -P cmake/MendToolkit.cmake
