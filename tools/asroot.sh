#!/usr/bin/env bash
# Runs a command as root: as it is where this already is root, with sudo otherwise.
# Usage: tools/asroot.sh COMMAND...
set -euo pipefail
umask 022  # what root writes is everybody's to read
if [ "$(id -u)" = 0 ]; then exec "$@"; fi
command -v sudo >/dev/null || { echo "root has to run this, as there is no sudo: $*" >&2; exit 1; }
exec sudo "$@"
