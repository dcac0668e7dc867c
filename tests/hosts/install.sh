#!/usr/bin/env bash
# Installs the programs that the host tests drive: Debian's packages of four hosts, and what runs them without a screen.
# Silent and quick when all is there. "install.sh --list" only names the packages that are missing.
set -euo pipefail

packages=(
  ardour audacity qtractor muse           # the hosts
  jackd2                                  # a sound server without a sound card
  xvfb openbox xdotool wmctrl x11-utils   # a screen without a display, windows to look at and to click
  imagemagick                             # pictures of that screen
  python3 gcc libc6-dev                   # the tests' own arithmetic
)

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

missing=()
for package in "${packages[@]}"; do
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
done
[ ${#missing[@]} = 0 ] && exit 0
if [ "${1:-}" = --list ]; then
  printf '%s\n' "${missing[@]}"
  exit 0
fi

echo "installing: ${missing[*]}"
as_root apt-get update -qq
as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
