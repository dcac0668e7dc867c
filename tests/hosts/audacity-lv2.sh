#!/usr/bin/env bash
# Audacity finds the effect as LV2 and renders through it with a factory preset, and with values
# that are typed into the controls of its own; every sample is compared.
# Usage: tests/hosts/audacity-lv2.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/audacitycommon.sh"
. "$tests/windowcommon.sh"
lv2_world
export VST_PATH="$work/nothing" LXVST_PATH="$work/nothing"

# By a key: its pipe takes no command with a colon in its name, and the effect's has its URI.
open_effect() {
  start_audacity 1 || return 1
  wait_for 60 window_is_open || { echo "no window"; tail -n 5 "$work/audacity.log"; return 1; }
  tell_audacity "Import2: Filename=$sound_file" "SelectAll:" || return 1
  timeout 10 xdotool windowactivate --sync \
    "$(timeout 5 xdotool search --name '^stereo$' | head -n 1)" && sleep 1 &&
    timeout 5 xdotool key "${effect_key,,}" && wait_for 20 find_dialogue && sleep 1 ||
    { all_windows | grep '("audacity"'; return 1; }
}
# type_value Y VALUE: into the field that is so many pixels below the dialogue's upper edge.
width_y=88 freq_y=127
type_value() {
  click_dialogue 131 "$1" && sleep 0.3 && timeout 5 xdotool key ctrl+a &&
    timeout 5 xdotool type "$2" && timeout 5 xdotool key Tab && sleep 0.3
}
apply_effect() {
  click_apply && wait_for 30 dialogue_is_gone || { echo "the dialogue does not close"; return 1; }
}
export_sound() { tell_audacity "Export2: Filename=$1 NumChannels=2"; }

start_screen
check "the window manager runs" start_window_manager || finish
first_configuration 'Effect_LV2_Orv_Orv\ Trelvan_urn:orv:trelvan'
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

# It does not find what embeds X11 windows, see docs/lv2.md.
typed=0.75,0.625,0,1,0
reference_render "$sound_file" "$work/typed-rule.wav" $rate $typed $typed
check "Audacity opens the effect with controls of its own" open_effect || finish
check "a width is typed" type_value $width_y 0.75
check "a base frequency is typed" type_value $freq_y 0.625
timeout 10 import -silent -window root "$pictures/audacity-lv2-screen.png"
check "the effect is applied, and its dialogue closes" apply_effect || finish
check "the result is exported" export_sound "$work/typed.wav"
check "it is what the rule says with the typed values, bit by bit" \
  sound same "$work/typed.wav" "$work/typed-rule.wav"
stop_audacity
check "the next start opens the effect again" open_effect || finish
check "it is applied with what was typed before" apply_effect || finish
check "this result is exported" export_sound "$work/again.wav"
check "it is the same sound as before" sound same "$work/again.wav" "$work/typed-rule.wav"
stop_audacity
finish
