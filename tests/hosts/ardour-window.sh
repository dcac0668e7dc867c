#!/usr/bin/env bash
# Ardour shows the effect's window: a slider is dragged with the mouse, a preset is renamed with the
# keyboard, the session is saved, and the next start shows it as it was. Pictures stay in PICTURES,
# by default the build folder's pictures/.
# Usage: tests/hosts/ardour-window.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/ardourcommon.sh"
. "$tests/windowcommon.sh"
. "$tests/ardourwindow.sh"

# As LV2 the chunk lies beside the session, in the folder that it names.
take_chunk() {
  local state
  if [ -n "${LV2_URI:-}" ]; then
    state=$(sed -n 's/.*<lv2 [^>]*state-dir="\([^"]*\)".*/\1/p' "$song/mix.ardour")
    python3 "$tests/lv2state.py" "$(echo "$song"/plugins/*/"$state")" "$1"
  else
    python3 "$tests/ardoursession.py" chunk "$song/mix.ardour" | base64 -d >"$1"
  fi
}

stereo="$work/stereo.wav"
song="$work/song"
sound make "$stereo" $rate $seconds 2
if [ -n "${LV2_URI:-}" ]; then
  lv2_world
else
  check "the scanner finds the effect in its bundle" scan || finish
fi
check "a session with the effect is made and saved" \
  new_session "$song" "$stereo" 2 "0=0.75 1=0.25 2=0.3 3=1 4=1" || finish
# As LV2 the effect has its values from the first block on: the session is played by a load.
[ -z "${LV2_URI:-}" ] || check "the session is loaded and saved" session "$song" mix
python3 "$tests/ardoursession.py" with-window "$song/mix.ardour" || finish
take_chunk "$work/first.chunk"
# By 40 of the travel's 160 pixels: from 0.25 to 0.5.
changed=0.75,0.5,0.3,1,1

start_screen
check "the window manager runs" start_window_manager || finish
check "widen shows the window with the same settings" \
  widen_picture "$work/first.png" --state "$work/first.chunk" || finish
check "widen shows it with the settings after the drag" \
  widen_picture "$work/changed.png" --state "$work/first.chunk" --base-freq 0.5 || finish
check "the two pictures differ in the slider's row" \
  other_area "$work/first.png" "$work/changed.png" $freq_row

prepare_ardour || finish
[ -z "${LV2_URI:-}" ] || [ "$scale" = 1 ] ||
  check "Ardour has the scale, and the desktop has none" scale_by_ardour || finish
check "the sound server runs" start_sound_server $rate || finish
check "Ardour opens the session with the effect's window" start_ardour || finish
check "the window shows its artwork" shows_artwork ardour-opened
check "it looks as in widen, pixel by pixel" \
  pictured_as ardour-opened "$work/first.png" $below_meter
check "the slider is dragged with the mouse" drag "$(handle_x 0.25)" $freq_y "$(handle_x 0.5)"
check "the window shows the new value, pixel by pixel" \
  pictured_as ardour-dragged "$work/changed.png" $below_meter
check "nothing above the slider has changed" \
  same_area "$pictures/ardour-opened.png" "$pictures/ardour-dragged.png" $above_freq_row
check "nothing below the slider has changed" \
  same_area "$pictures/ardour-opened.png" "$pictures/ardour-dragged.png" $below_freq_row
check "the preset's name is typed over" rename_preset "wide 7"
check "the window shows another name" \
  pictured_otherwise ardour-renamed "$pictures/ardour-dragged.png" $name_area
check "nothing above the name has changed" \
  same_area "$pictures/ardour-dragged.png" "$pictures/ardour-renamed.png" $above_name
timeout 10 import -silent -window root "$pictures/ardour-screen.png"

check "Ardour saves the session" save_session
take_chunk "$work/changed.chunk"
check "the effect's first state had the settings that the session was made with" \
  parameters_are "$work/first.chunk" 0.75 0.25 0.3 1 1
check "its saved state has the dragged value and the others as before" \
  parameters_are "$work/changed.chunk" 0.75 0.5 0.3 1 1

check "its first preset has the typed name" preset_is_called "$work/changed.chunk" "wide 7"

check "the meter has stood still so far" \
  same_area "$pictures/ardour-opened.png" "$pictures/ardour-renamed.png" $meter_area
check "the track plays" keys space
check "the meter moves" pictured_otherwise ardour-playing "$pictures/ardour-opened.png" $meter_area
check "the track stops" keys space
check "Ardour ends properly with the window open" quit_ardour
check "the window is gone" wait_for 5 window_is_gone

check "Ardour opens the session again" start_ardour || finish
check "the window shows what was saved, pixel by pixel" \
  pictured_as ardour-reopened "$pictures/ardour-renamed.png" $below_meter
check "Ardour ends properly again" quit_ardour

reference_render "$stereo" "$work/rule.wav" $rate $changed $changed
check "the saved session has the dragged value beside its state" \
  session "$song" mix EXPECTED="0=0.75 1=0.5 2=0.3 3=1 4=1"
check "it renders as the rule says with that value, bit by bit" \
  renders_like "$song" mix "$work/rule.wav"
finish
