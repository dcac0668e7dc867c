#!/usr/bin/env bash
# Qtractor shows the effect's window: sliders are dragged with the mouse, a preset is renamed with
# the keyboard, the session is saved, and the next start shows it as it was and exports its sound,
# of which every sample is compared. Pictures stay in PICTURES, by default the build folder's
# pictures/.
# Usage: tests/hosts/qtractor.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/windowcommon.sh"

needs qtractor wmctrl
rate=48000
seconds=3
sound_file="$work/sound.wav"
song="$work/song.qtr"
plugin=$module
if [ -n "${LV2_URI:-}" ]; then
  plugin=$LV2_URI
  lv2_world
fi

# It does not start without the kernel's sequencer, which machines for tests mostly lack.
make_sequencer() {
  g++ -std=c++20 -O2 -Wall -Wextra -shared -fPIC -o "$work/sequencer.so" \
    "$tests/emptysequencer.cpp"
}

# Exports are floats; what it says goes to its standard output instead of a window of its own.
first_configuration() {
  mkdir -p "$XDG_CONFIG_HOME/rncbc.org"
  cat >"$XDG_CONFIG_HOME/rncbc.org/Qtractor.conf" <<'CFG'
[Options]
Audio\ExportFormat=3
Display\StdoutCapture=false
CFG
}

main_window() { timeout 5 xdotool search --name '/song.qtr' | head -n 1; }
main_window_is_there() { [ -n "$(main_window)" ]; }
# click WINDOW X Y [TIMES]
click() {
  timeout 5 xdotool mousemove --window "$1" "$2" "$3" && sleep 0.3 &&
    timeout 5 xdotool click --repeat "${4:-1}" --delay 80 1
}
# keys KEY...: to the main window.
keys() {
  local key
  timeout 10 xdotool windowactivate --sync "$(main_window)" || return 1
  for key; do sleep 0.5 && timeout 5 xdotool key "$key" || return 1; done
}

# The window opens by two clicks on the effect in the track's list.
start_qtractor() {
  LD_PRELOAD="$work/sequencer.so" timeout -k 5 600 qtractor "$song" >"$work/qtractor.log" 2>&1 &
  qtractor_process=$!
  started+=("$qtractor_process")
  wait_for 60 main_window_is_there && sleep 2 && open_effect ||
    { tail -n 5 "$work/qtractor.log"; all_windows | grep '"'; return 1; }
}
open_effect() {
  for _ in 1 2 3 4 5; do
    click "$(main_window)" 180 179 2 && wait_for 5 find_window && break
  done
  mouse_away && sleep 1 && find_window
}

save_session() {
  local before
  before=$(cksum <"$song")
  keys ctrl+s && wait_for 10 session_is_saved "$before" ||
    { echo "the session was not saved"; return 1; }
}
session_is_saved() { [ "$(cksum <"$song")" != "$1" ] && grep -q '</session>' "$song"; }
session_says() {
  grep -q "<param .*name=\"$1\".*>$2</param>" "$song" ||
    { grep '<param ' "$song"; return 1; }
}
quit_qtractor() {
  timeout 5 wmctrl -c /song.qtr && has_ended "$qtractor_process" ||
    { tail -n 5 "$work/qtractor.log"; return 1; }
}

# From the menu: Track, Export Tracks, Audio. In the dialogue the output is chosen, then OK.
export_dialogue() { timeout 5 xdotool search --name '^Export Audio Tracks' | tail -n 1; }
export_dialogue_is_there() { [ -n "$(export_dialogue)" ]; }
exported="$work/song-export-1.wav"
frame_size=8  # bytes, of two floats
is_exported() { [ "$(sound raw "$exported" | wc -c)" = $((frame_size * rate * seconds)) ]; }
export_session() {
  keys alt+t x a && wait_for 10 export_dialogue_is_there && sleep 0.5 &&
    click "$(export_dialogue)" 265 147 && sleep 0.5 && click "$(export_dialogue)" 297 346 &&
    wait_for 30 is_exported || { all_windows | grep '"'; return 1; }
}
# Its mixer fades the first block in and what comes after the last whole one out.
middle() {
  sound part "$1" "$2" $block $((rate * seconds / block * block - block))
}
exported_as_the_rule_says() {
  middle "$exported" "$work/exported.wav" && middle "$work/rule.wav" "$work/expected.wav" &&
    sound same "$work/exported.wav" "$work/expected.wav"
}

start_screen
check "the window manager runs" start_window_manager || finish
# Without depth nobody would hear freq.
changed=0.75,0.75,0,1,0
check "widen shows the window as it is at first" widen_picture "$work/first.png" || finish
check "widen shows it with the settings after the drags" \
  widen_picture "$work/changed.png" --width 0.75 --base-freq 0.75 || finish

sound make "$sound_file" $rate $seconds 2
reference_render "$sound_file" "$work/rule.wav" $rate $changed $changed
python3 "$tests/qtractorsong.py" make \
  "$song" "$sound_file" $rate $((rate * seconds)) "$plugin" || finish
first_configuration
check "a sequencer without events is made for it" make_sequencer || finish
check "the sound server runs" start_sound_server $rate || finish
check "Qtractor finds the effect of the session and opens its window" start_qtractor || finish
check "the window shows its artwork" shows_artwork qtractor-opened
check "it looks as in widen, pixel by pixel" \
  pictured_as qtractor-opened "$work/first.png" $below_meter
check "freq's slider is dragged with the mouse" drag "$(handle_x 0.5)" $freq_y "$(handle_x 0.75)"
check "depth's slider is dragged with the mouse" drag "$(handle_x 0)" $depth_y "$(handle_x 0.75)"
check "the window shows both values, pixel by pixel" \
  pictured_as qtractor-dragged "$work/changed.png" $below_meter
check "the preset's name is typed over" rename_preset "wide 7"
check "the window shows another name" \
  pictured_otherwise qtractor-renamed "$pictures/qtractor-dragged.png" $name_area
check "nothing above the name has changed" \
  same_area "$pictures/qtractor-dragged.png" "$pictures/qtractor-renamed.png" $above_name
timeout 10 import -silent -window root "$pictures/qtractor-screen.png"

check "Qtractor saves the session" save_session || finish
check "the session has one dragged value" session_says baseFreq 0.75
check "and the other" session_says width 0.75
check "the session has the effect's state" \
  python3 "$tests/qtractorsong.py" chunk "$song" "$work/qtractor.chunk"
check "the state has the dragged values and the others as before" \
  parameters_are "$work/qtractor.chunk" 0.75 0.75 0 1 0
check "its first preset has the typed name" preset_is_called "$work/qtractor.chunk" "wide 7"
check "Qtractor ends properly with the window open" quit_qtractor
check "the window is gone" wait_for 5 window_is_gone

check "Qtractor opens the session again" start_qtractor || finish
check "the window shows what was saved, pixel by pixel" \
  pictured_as qtractor-reopened "$pictures/qtractor-renamed.png" $below_meter
check "the session is exported" export_session || finish
check "between the mixer's fades it is what the rule says, bit by bit" exported_as_the_rule_says
check "Qtractor saves the session again" save_session
check "Qtractor ends properly again" quit_qtractor
finish
