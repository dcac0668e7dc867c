#!/usr/bin/env bash
# Installs the programs that the host tests drive: Debian's packages of the hosts, and what runs
# them without a screen. Silent and quick when all is there.
set -euo pipefail

packages=(
  ardour audacity qtractor muse           # the hosts
  jalv ffmpeg lv2file                     # of LV2 alone, as is GStreamer with its elements
  gstreamer1.0-tools gstreamer1.0-plugins-good gstreamer1.0-plugins-bad
  jackd2 libjack-jackd2-dev               # a sound server without a sound card, and its clients
  xvfb openbox xdotool wmctrl x11-utils   # a screen without a display, windows to see and to click
  imagemagick                             # pictures of that screen
  python3 g++                             # the tests' own arithmetic
)

exec "$(dirname "$0")/../../tools/packages.sh" "${packages[@]}"
