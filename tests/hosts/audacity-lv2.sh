#!/usr/bin/env bash
# Audacity finds the effect as LV2 and renders through it with a factory preset; every sample is
# compared.
# Usage: tests/hosts/audacity-lv2.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/audacitycommon.sh"
lv2_world
export VST_PATH="$work/nothing" LXVST_PATH="$work/nothing"

registered_as_lv2() {
  local entry expected
  entry=$(sed -n '/^Path=urn:orv:trelvan$/,/^\[/p' "$registry")
  for expected in 'Symbol=Orv Trelvan' 'Vendor=Orv' 'Enabled=1' 'Valid=1' 'EffectType=Process' \
    'EffectFamily=LV2' 'EffectAutomatable=1'; do
    grep -qxF -- "$expected" <<<"$entry" ||
      { echo "not in the registry: $expected"; cat "$registry"; return 1; }
  done
}

render() {
  start_audacity 1 || return 1
  wait_for 60 window_is_open || { echo "no window"; tail -n 5 "$work/audacity.log"; return 1; }
  tell_audacity "Import2: Filename=$sound_file" "SelectAll:" "$1" \
    "Export2: Filename=$2 NumChannels=2"
  local status=$?
  stop_audacity
  return $status
}

start_screen
first_configuration
sound make "$sound_file" $rate $seconds 2
check "the first start finds the effect" scan_with_audacity || finish
check "it is registered as an LV2 effect that is enabled" registered_as_lv2
values=0.75,0.25,0.5,1,0  # "techno space 2"
reference_render "$sound_file" "$work/rule.wav" $rate $values $values
check "it is applied with a factory preset" \
  render 'OrvTrelvan: Use_Preset="Factory Preset:techno space 2"' "$work/lv2.wav"
check "it renders as the rule says, bit by bit" sound same "$work/lv2.wav" "$work/rule.wav"
finish
