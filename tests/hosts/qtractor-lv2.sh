#!/usr/bin/env bash
# qtractor.sh with the effect as LV2. Pictures stay in a folder lv2/ below the other ones.
# Usage: tests/hosts/qtractor-lv2.sh BUILD-FOLDER
export LV2_URI=urn:orv:trelvan PICTURES=${PICTURES:-$1/pictures}/lv2
. "$(dirname "${BASH_SOURCE[0]}")/qtractor.sh"
