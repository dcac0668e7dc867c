#!/usr/bin/env bash
# Audacity finds the effect as LV2 and renders through it with a factory preset; every sample is
# compared.
# Usage: tests/hosts/audacity-lv2.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/audacitycommon.sh"
lv2_world
export VST_PATH="$work/nothing" LXVST_PATH="$work/nothing"

start_screen
first_configuration
sound make "$sound_file" $rate $seconds 2
check "the first start finds the effect" scan_with_audacity || finish
check "it is registered as an LV2 effect that is enabled" \
  registered_as urn:orv:trelvan EffectFamily=LV2
values=0.75,0.25,0.5,1,0  # "techno space 2"
reference_render "$sound_file" "$work/rule.wav" $rate $values $values
check "it is applied with a factory preset" \
  render "$sound_file" 2 "$work/lv2.wav" \
  'OrvTrelvan: Use_Preset="Factory Preset:techno space 2"'
check "it renders as the rule says, bit by bit" sound same "$work/lv2.wav" "$work/rule.wav"
finish
