#!/usr/bin/env bash
# ardour-window.sh on a screen of twice as many pixels an inch: the window is twice as large, and
# everything in it works as it does there.
# Usage: tests/hosts/ardour-window-200.sh BUILD-FOLDER
SCALE=2 . "$(dirname "${BASH_SOURCE[0]}")/ardour-window.sh"
