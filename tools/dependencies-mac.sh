#!/usr/bin/env bash
# macOS: installs what Trelvan needs and is missing, with Homebrew. The toolkit's source is fetched
# by CMake. Silent and quick when all is there.
# Usage: tools/dependencies-mac.sh [--print] [build|test]
# (test adds the tests' tools; --print only says what it would install)
set -euo pipefail
print=
[ "${1:-}" != --print ] || { print=yes; shift; }

build_packages=(
  cmake ninja pkg-config
  # widen
  libsndfile libebur128 cli11 nlohmann-json cairo
  lowdown  # the manual page
  librsvg  # the window's pictures
)
test_packages=(googletest clang-format)

xcode-select -p >/dev/null 2>&1 ||
  { echo "the compiler is missing: run xcode-select --install" >&2; exit 1; }
command -v brew >/dev/null || { echo "Homebrew is missing: see README, Dependencies" >&2; exit 1; }

packages=("${build_packages[@]}")
if [ "${1:-build}" = test ]; then packages+=("${test_packages[@]}"); fi
missing=()
for package in "${packages[@]}"; do
  brew list --versions "$package" >/dev/null 2>&1 || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  count="${#missing[@]} of Homebrew's formulas, and what they need: ${missing[*]}"
  if [ -n "$print" ]; then
    echo "missing: $count"
    exit 0
  fi
  echo "installing $count"
  brew install --quiet "${missing[@]}"
fi
