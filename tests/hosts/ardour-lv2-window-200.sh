#!/usr/bin/env bash
# ardour-lv2-window.sh with Ardour's own scale set to two, and none on the desktop: the window is
# twice as large, and everything in it works as it does there.
# Usage: tests/hosts/ardour-lv2-window-200.sh BUILD-FOLDER
SCALE=2 . "$(dirname "${BASH_SOURCE[0]}")/ardour-lv2-window.sh"
