#!/usr/bin/env bash
# jalv shows the effect's window as LV2: sliders are dragged with the mouse, a preset is renamed
# with the keyboard, the state is saved, and the next start shows it and sounds as the rule says. A
# factory preset that the host is given shows in the window. Pictures stay in PICTURES, by default
# the build folder's pictures/.
# Usage: tests/hosts/jalv-window.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/windowcommon.sh"
lv2_world
needs jalv.gtk3 wmctrl

start_jalv() {
  timeout -k 5 120 jalv.gtk3 "$@" urn:orv:trelvan >"$work/jalv.log" 2>&1 &
  jalv_process=$!
  started+=("$jalv_process")
  wait_for 30 find_window || { tail -n 5 "$work/jalv.log"; all_windows | grep '"'; return 1; }
  mouse_away && sleep 1 && find_window
}
quit_jalv() {
  timeout 5 wmctrl -c "Orv Trelvan" && has_ended "$jalv_process" ||
    { tail -n 5 "$work/jalv.log"; return 1; }
}

# save_state FOLDER: by jalv's dialogue, which takes a typed path.
save_state() {
  timeout 10 xdotool windowactivate --sync \
    "$(timeout 5 xdotool search --name '^Orv Trelvan$' | head -n 1)" && sleep 0.3 &&
    timeout 5 xdotool key ctrl+s && wait_for 10 save_dialogue_is_there && sleep 0.5 &&
    timeout 20 xdotool type "$1" && sleep 0.5 && timeout 5 xdotool key Return &&
    wait_for 10 test -s "$1/state.ttl" || { all_windows | grep '"'; return 1; }
}
save_dialogue_is_there() { [ -n "$(timeout 5 xdotool search --name '^Save State$')" ]; }

start_screen
check "the window manager runs" start_window_manager || finish
check "widen shows the window as it is at first" widen_picture "$work/first.png" || finish
check "widen shows it with the settings after the drag" \
  widen_picture "$work/changed.png" --width 0.75 --base-freq 0.75 || finish
# Without depth nobody would hear freq.
changed=0.75,0.75,0,1,0
check "the sound server runs" start_sound_server 48000 || finish
check "jalv opens the effect's window" start_jalv || finish
check "the window shows its artwork" shows_artwork jalv-opened
check "it looks as in widen, pixel by pixel" pictured_as jalv-opened "$work/first.png" $below_meter
check "freq's slider is dragged with the mouse" drag "$(handle_x 0.5)" $freq_y "$(handle_x 0.75)"
check "depth's slider is dragged with the mouse" drag "$(handle_x 0)" $depth_y "$(handle_x 0.75)"
check "the window shows both values, pixel by pixel" \
  pictured_as jalv-dragged "$work/changed.png" $below_meter
check "the preset's name is typed over" rename_preset "wide 7"
check "the window shows another name" \
  pictured_otherwise jalv-renamed "$pictures/jalv-dragged.png" $name_area
check "jalv saves the state" save_state "$work/saved"
check "the state holds a chunk" python3 "$tests/lv2state.py" "$work/saved" "$work/first.chunk"
check "it has the dragged values and the others as before" \
  parameters_are "$work/first.chunk" 0.75 0.75 0 1 0
check "its first preset has the typed name" preset_is_called "$work/first.chunk" "wide 7"
check "jalv ends properly with the window open" quit_jalv
check "the window is gone" wait_for 5 window_is_gone

check "jalv opens with the saved state" start_jalv --load "$work/saved" || finish
check "the window shows what was saved, pixel by pixel" \
  pictured_as jalv-reopened "$pictures/jalv-renamed.png" $below_meter
check "what is played into it becomes what the rule says, bit by bit" sounds_like $changed \
  "Orv Trelvan:in_left" "Orv Trelvan:in_right" "Orv Trelvan:out_left" "Orv Trelvan:out_right"
check "jalv saves the state again" save_state "$work/again"
check "the second state holds a chunk" \
  python3 "$tests/lv2state.py" "$work/again" "$work/second.chunk"
check "it is the first one's, byte by byte" cmp "$work/first.chunk" "$work/second.chunk"
check "jalv ends properly with the state" quit_jalv

# A host's preset sets values; the name stays.
check "widen shows the values of a factory preset" \
  widen_picture "$work/preset.png" --preset "techno space 2" || finish
check "jalv opens with that preset" start_jalv --preset urn:orv:trelvan:preset:08 || finish
check "the window shows its values, pixel by pixel" \
  pictured_as jalv-preset "$work/preset.png" $above_name
check "and the name of the first one" \
  same_area "$pictures/jalv-preset.png" "$work/first.png" $name_area
check "jalv ends properly again" quit_jalv
finish
