#!/usr/bin/env bash
# jalv shows the effect's window as LV2: a slider is dragged with the mouse, and a factory preset
# that the host is given shows there. Pictures stay in PICTURES, by default the build folder's
# pictures/.
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

start_screen
check "the window manager runs" start_window_manager || finish
check "widen shows the window as it is at first" widen_picture "$work/first.png" || finish
check "widen shows it with the settings after the drag" \
  widen_picture "$work/changed.png" --base-freq 0.75 || finish
check "the sound server runs" start_sound_server 48000 || finish
check "jalv opens the effect's window" start_jalv || finish
check "the window shows its artwork" shows_artwork jalv-opened
check "it looks as in widen, pixel by pixel" pictured_as jalv-opened "$work/first.png" $below_meter
check "the slider is dragged with the mouse" drag "$(handle_x 0.5)" $freq_y "$(handle_x 0.75)"
check "the window shows the new value, pixel by pixel" \
  pictured_as jalv-dragged "$work/changed.png" $below_meter
check "jalv ends properly with the window open" quit_jalv
check "the window is gone" wait_for 5 window_is_gone

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
