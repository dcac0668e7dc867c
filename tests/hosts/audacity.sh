#!/usr/bin/env bash
# Audacity scans the bundle, renders through it with a user preset, and remembers the settings;
# every sample is compared.
# Usage: tests/hosts/audacity.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/audacitycommon.sh"

start_screen
first_configuration
check "the first start finds the effect in its bundle" scan_with_audacity || finish
check "it is registered as an effect that is enabled" registered_as '.*Trelvan\.so;0' \
  'Name=Orv Trelvan' EffectFamily=VST EffectInteractive=1

# The state goes in as user preset "p1", a chunk that widen made. The effect is switched on before
# it gets the chunk, so it glides from its first preset to the chunk's.
sound make "$sound_file" $rate $seconds 2
reference_render "$sound_file" "$work/rule-preset.wav" $rate $init 0.75,0.25,0.3,1,1
save_state "$work/preset.chunk" --width 0.75 --base-freq 0.25 --emphasis 0.3 --phase on ||
  give_up "widen saves no state"
state put UserPresets/p1 "$work/preset.chunk"
check "a user preset is applied" \
  render "$sound_file" 2 "$work/preset.wav" 'OrvTrelvan: Use_Preset="User Preset:p1"' || finish
check "it renders as the rule says, glide and all, bit by bit" \
  sound same "$work/preset.wav" "$work/rule-preset.wav"

# The track's own rate is told after the effect was switched on with 44.1 kHz.
late="$work/late.wav"
sound make "$late" 48000 $seconds 2
sound raw "$late" | "$work/reference" $rate $init 0.75,0.25,0.3,1,1 |
  sound wav 48000 "$work/rule-late.wav"
check "it is applied to a track of 48 kHz" \
  render "$late" 2 "$work/preset-late.wav" 'OrvTrelvan: Use_Preset="User Preset:p1"'
check "there its delays have as many frames as at 44.1 kHz, bit by bit" \
  sound same "$work/preset-late.wav" "$work/rule-late.wav"

# A mono track stays mono: the effect's right input is silent, and its right output is thrown away.
mono="$work/mono.wav"
sound make "$mono" $rate $seconds 1
sound left-only "$mono" "$work/left.wav"
reference_render "$work/left.wav" "$work/rule-left.wav" $rate $init 0.75,0.25,0.3,1,1
sound left "$work/rule-left.wav" "$work/rule-mono.wav"
check "it is applied to a mono track" \
  render "$mono" 1 "$work/preset-mono.wav" 'OrvTrelvan: Use_Preset="User Preset:p1"'
check "the track is the rule's left output for a silent right input, bit by bit" \
  sound same "$work/preset-mono.wav" "$work/rule-mono.wav"

# Audacity has saved the state that it found in the effect at first.
save_state "$work/init.chunk"
check "Audacity saved the effect's first state" state take FactoryDefaults "$work/factory.chunk"
check "it is the chunk that widen saves, byte by byte" cmp "$work/factory.chunk" "$work/init.chunk"

# The next start takes up the settings used last, and saves what the effect makes of them.
reference_render "$sound_file" "$work/rule-last.wav" $rate $init 0.5,0.8,0,1,0
save_state "$work/last.chunk" --width 0.5 --base-freq 0.8
state put CurrentSettings "$work/last.chunk"
check "the settings used last are applied" render "$sound_file" 2 "$work/last.wav" 'OrvTrelvan:'
check "they render as the rule says, bit by bit" sound same "$work/last.wav" "$work/rule-last.wav"
check "Audacity saved them again" state take SavedState "$work/saved.chunk"
check "they are the chunk that widen saved, byte by byte" cmp "$work/saved.chunk" "$work/last.chunk"

finish
