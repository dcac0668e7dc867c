#!/usr/bin/env bash
# Runs a command as root: as it is where this already is root, with sudo otherwise.
# Usage: tools/asroot.sh COMMAND...
set -euo pipefail
if [ "$(id -u)" = 0 ]; then exec "$@"; else exec sudo "$@"; fi
