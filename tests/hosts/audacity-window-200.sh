#!/usr/bin/env bash
# audacity-window.sh on a screen of twice as many pixels an inch: the window is twice as large, and
# everything in it works as it does there.
# Usage: tests/hosts/audacity-window-200.sh BUILD-FOLDER
SCALE=2 . "$(dirname "${BASH_SOURCE[0]}")/audacity-window.sh"
