#!/usr/bin/env bash
# Ardour scans the bundle, renders through it, and saves and restores its state; every
# sample is compared.
# Usage: tests/hosts/ardour.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/ardourcommon.sh"

check "the scanner finds the effect in its bundle" scan || finish

make_sounds
check_sessions
check "widen renders the same settings" \
  widen_render "$stereo" "$work/widen.wav" --width 0.75 --base-freq 0.25 --emphasis 0.3 --phase on
check "widen's render and the rule's are the same" sound same "$work/widen.wav" "$work/first.wav"

# The chunk crosses hosts, and alone holds everything.
python3 "$tests/ardoursession.py" chunk "$song/changed.ardour" | base64 -d >"$work/ardour.chunk"
check "Ardour's chunk is taken by widen" \
  widen_render "$stereo" "$work/widen2.wav" --state "$work/ardour.chunk"
check "Ardour's chunk in widen sounds the same" sound same "$work/widen2.wav" "$work/second.wav"

preset=0.75,0.25,0.5,1,0  # factory preset 8, "techno space 2"
reference_render "$stereo" "$work/preset.wav" $rate $preset $preset
timeout 60 "$build/widen" --quiet --plugin "$module" --preset "techno space 2" \
  --save-state "$work/widen.chunk"
base64 -w 0 "$work/widen.chunk" |
  python3 "$tests/ardoursession.py" with-chunk "$song/mix.ardour" "$song/preset.ardour"
check "widen's chunk in a session wins over the parameters beside it" \
  renders_like "$song" preset "$work/preset.wav"
check "the loaded session shows the chunk's parameters" \
  session "$song" preset EXPECTED="0=0.75 1=0.25 2=0.5 3=1 4=0"

# One channel in, two out.
check "a mono track with the effect is made and saved" \
  new_session "$work/monosong" "$mono" 1 "0=0.75 1=0.25 2=0.3 3=1 4=1"
check "the mono track becomes stereo as the rule says, bit by bit" \
  renders_like "$work/monosong" mix "$work/mono-rule.wav"
check "widen renders the mono file with the same settings" \
  widen_render "$mono" "$work/widen-mono.wav" \
  --width 0.75 --base-freq 0.25 --emphasis 0.3 --phase on
check "widen's mono render and the rule's are the same" \
  sound same "$work/widen-mono.wav" "$work/mono-rule.wav"

finish
