#!/usr/bin/env bash
# muse-window.sh with the effect as LV2. Pictures stay in a folder lv2/ below the other ones.
# Usage: tests/hosts/muse-lv2-window.sh BUILD-FOLDER
export LV2_URI=urn:orv:trelvan PICTURES=${PICTURES:-$1/pictures}/lv2
. "$(dirname "${BASH_SOURCE[0]}")/muse-window.sh"
