#!/usr/bin/env bash
# Ardour renders through the effect as LV2, and saves and restores its state; every sample is
# compared. Its state is widen's too, and LV2 and VST 2 stand on one track.
# Usage: tests/hosts/ardour-lv2.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/ardourcommon.sh"
lv2_world

make_sounds
export LV2_URI=urn:orv:trelvan

with_vst2_after() {
  local BESIDE=1
  export BESIDE
  new_session "$1" "$stereo" 2 "0=0.75 1=0.25 2=0.3 3=1 4=1"
}

check_sessions

# The effect has a value from the first block with it on: the session is played by a load.
check "the changed session is loaded and saved again" \
  session "$song" changed EXPECTED="0=0.75 1=0.6 2=0.3 3=1 4=1" SAVE_AS=again
state=$(sed -n 's/.*<lv2 [^>]*state-dir="\([^"]*\)".*/\1/p' "$song/again.ardour")
check "Ardour's state holds a chunk" \
  python3 "$tests/lv2state.py" "$(echo "$song"/plugins/*/"$state")" "$work/ardour.chunk"
check "it is one that widen takes" \
  widen_render "$stereo" "$work/widen.wav" --state "$work/ardour.chunk"
check "it sounds the same in widen" sound same "$work/widen.wav" "$work/second.wav"

# Both interfaces in one process, one after the other.
check "the scanner finds the VST 2 effect" scan
reference_render "$work/first.wav" "$work/twice.wav" $rate $first $first
check "a session with LV2 and VST 2 on one track is made" \
  with_vst2_after "$work/two" || finish
check "it renders as the rule says, applied twice, bit by bit" \
  renders_like "$work/two" mix "$work/twice.wav"

# One channel in, two out.
export LV2_URI=urn:orv:trelvan:mono
check "a mono track with the mono effect is made and saved" \
  new_session "$work/monosong" "$mono" 1 "0=0.75 1=0.25 2=0.3 3=1 4=1"
check "the mono track becomes stereo as the rule says, bit by bit" \
  renders_like "$work/monosong" mix "$work/mono-rule.wav"

finish
