#!/usr/bin/env bash
# Audacity shows the effect's window: sliders are dragged with the mouse, a preset is renamed with
# the keyboard, the effect is applied, and the next start shows it as it was. Pictures stay in
# PICTURES, by default the build folder's pictures/.
# Usage: tests/hosts/audacity-window.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/audacitycommon.sh"
. "$tests/windowcommon.sh"

# open_effect: a new Audacity with the sound, all of it selected, and the effect's dialogue from its
# menu. The menu's command is answered only when the dialogue is closed.
open_effect() {
  local id
  start_audacity 1 || return 1
  wait_for 60 window_is_open || { echo "no window"; tail -n 5 "$work/audacity.log"; return 1; }
  tell_audacity "Import2: Filename=$sound_file" "SelectAll:" "GetInfo: Type=Menus" >"$work/menus" ||
    { cat "$work/menus"; return 1; }
  id=$(sed -n 's/.*"id":"\(Effect_VST_Orv_[^"]*\)".*/\1/p' "$work/menus")
  [ -n "$id" ] || { echo "the effect is in no menu"; return 1; }
  timeout 60 python3 "$tests/audacitypipe.py" "$id:" >"$work/answer" 2>&1 &
  dialogue_command=$!
  started+=("$dialogue_command")
  wait_for 20 find_window && mouse_away && sleep 1 && find_window ||
    { all_windows | grep '("audacity"'; return 1; }
}

apply_effect() {
  click_apply && wait_for 30 window_is_gone || { echo "the dialogue does not close"; return 1; }
  wait "$dialogue_command" && grep -q "BatchCommand finished: OK" "$work/answer" ||
    { cat "$work/answer"; return 1; }
  end_process "$dialogue_command"
}

start_screen
check "the window manager runs" start_window_manager || finish
sound make "$sound_file" $rate $seconds 2
# The mouse drags depth by 120 and freq by 40 of the travel's 160 pixels. Without depth nobody
# would hear freq.
changed=0.75,0.25,0,1,0
check "widen shows the window as it is at first" widen_picture "$work/first.png" || finish
check "widen shows it with the settings after the drags" \
  widen_picture "$work/changed.png" --width 0.75 --base-freq 0.25 || finish
check "the two pictures differ in depth's row" \
  other_area "$work/first.png" "$work/changed.png" $depth_row
check "the two pictures differ in freq's row" \
  other_area "$work/first.png" "$work/changed.png" $freq_row

first_configuration
check "the first start finds the effect in its bundle" scan_with_audacity || finish
check "Audacity opens the effect's window" open_effect || finish
check "the window shows its artwork" shows_artwork audacity-opened
check "it looks as in widen, pixel by pixel" \
  pictured_as audacity-opened "$work/first.png" $below_meter
check "freq's slider is dragged with the mouse" drag "$(handle_x 0.5)" $freq_y "$(handle_x 0.25)"
check "its row shows the new value, pixel by pixel" \
  pictured_as audacity-dragged "$work/changed.png" $freq_row
check "nothing above it has changed" \
  same_area "$pictures/audacity-opened.png" "$pictures/audacity-dragged.png" $above_freq_row
check "nothing below it has changed" \
  same_area "$pictures/audacity-opened.png" "$pictures/audacity-dragged.png" $below_freq_row
check "depth's slider is dragged with the mouse" drag "$(handle_x 0)" $depth_y "$(handle_x 0.75)"
check "the window shows both values, pixel by pixel" \
  pictured_as audacity-dragged "$work/changed.png" $below_meter
check "the preset's name is typed over" rename_preset "wide 7"
check "the window shows another name" \
  pictured_otherwise audacity-renamed "$pictures/audacity-dragged.png" $name_area
check "nothing above the name has changed" \
  same_area "$pictures/audacity-dragged.png" "$pictures/audacity-renamed.png" $above_name
timeout 10 import -silent -window root "$pictures/audacity-screen.png"

check "the effect is applied, and its window closes" apply_effect || finish
check "the result is exported" tell_audacity "Export2: Filename=$work/applied.wav NumChannels=2"
reference_render "$sound_file" "$work/rule.wav" $rate $init $changed
check "it is what the rule says with the dragged values, bit by bit" \
  sound same "$work/applied.wav" "$work/rule.wav"
stop_audacity
check "Audacity saved the settings used last" state take CurrentSettings "$work/last.chunk"
check "they have the dragged values and the others as before" \
  parameters_are "$work/last.chunk" 0.75 0.25 0 1 0
check "their first preset has the typed name" preset_is_called "$work/last.chunk" "wide 7"

check "the next start opens the window again" open_effect || finish
check "it shows what was saved, pixel by pixel" \
  pictured_as audacity-reopened "$pictures/audacity-renamed.png" $below_meter
check "the effect is applied again" apply_effect
check "this result is exported" tell_audacity "Export2: Filename=$work/again.wav NumChannels=2"
check "it is the same sound as before" sound same "$work/again.wav" "$work/rule.wav"
stop_audacity
finish
