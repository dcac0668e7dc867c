#!/usr/bin/env bash
# MusE shows the effect's window: a slider is dragged with the mouse, a preset is renamed with the
# keyboard, the song is saved, and the next start shows it as it was. Pictures stay in PICTURES, by
# default the build folder's pictures/.
# Usage: tests/hosts/muse-window.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/windowcommon.sh"

needs muse wmctrl
song="$work/song.med"

without_splash() {
  mkdir -p "$XDG_CONFIG_HOME/MusE/MusE"
  cat >"$XDG_CONFIG_HOME/MusE/MusE/MusE-seq.cfg" <<'XML'
<?xml version="1.0"?>
<muse version="3.3">
  <configuration>
    <showSplashScreen>0</showSplashScreen>
  </configuration>
</muse>
XML
}

# MusE with JACK, which it does not start, and with no plug-ins but VST 2's or LV2's. Its tip of the
# day is closed.
only=(-p -S -I -2)
title="Out 1:Orv Trelvan"
if [ -n "${LV2_URI:-}" ]; then
  only=(-p -S -I -N)
  title="Out 1: Orv Trelvan LV2"
  lv2_world
fi
start_muse() {
  timeout -k 5 600 muse -j -J -R "${only[@]}" "$song" >"$work/muse.log" 2>&1 &
  muse_process=$!
  started+=("$muse_process")
  wait_for 60 find_window || { tail -n 5 "$work/muse.log"; all_windows | grep '"'; return 1; }
  wait_for 10 timeout 5 wmctrl -c "Did you know?"
  timeout 5 wmctrl -a "$title" && mouse_away && sleep 1 && find_window
}

save_song() {
  timeout 5 xdotool windowactivate --sync \
    "$(timeout 5 xdotool search --name '^MusE Project' | head -n 1)" &&
    sleep 0.3 && timeout 5 xdotool key ctrl+s && wait_for 10 song_is_saved
}
quit_muse() {
  timeout 5 wmctrl -c "MusE Project" && has_ended "$muse_process" ||
    { tail -n 5 "$work/muse.log"; return 1; }
}

song_is_saved() {
  grep -q '<customData>' "$song" && grep -q '</muse>' "$song" &&
    ! grep -q '<unsaved changes>' <<<"$(all_windows)"
}
song_says() {
  grep -qF "<control name=\"$1\" val=\"$2\" />" "$song" ||
    { grep '<control name' "$song"; return 1; }
}

start_screen
check "the window manager runs" start_window_manager || finish
check "widen shows the window as it is at first" widen_picture "$work/first.png" || finish
check "widen shows it with the settings after the drag" \
  widen_picture "$work/changed.png" --width 0.75 --base-freq 0.75 || finish
# Without depth nobody would hear freq.
changed=0.75,0.75,0,1,0
check "the two pictures differ in the slider's row" \
  other_area "$work/first.png" "$work/changed.png" $freq_row

python3 "$tests/musesong.py" make "$song" ${LV2_URI:+"$LV2_URI"}
without_splash
check "the sound server runs" start_sound_server 48000 || finish
check "MusE finds the effect and opens its window with the song" start_muse || finish
check "the window shows its artwork" shows_artwork muse-opened
check "it looks as in widen, pixel by pixel" pictured_as muse-opened "$work/first.png" $below_meter
check "freq's slider is dragged with the mouse" drag "$(handle_x 0.5)" $freq_y "$(handle_x 0.75)"
check "depth's slider is dragged with the mouse" drag "$(handle_x 0)" $depth_y "$(handle_x 0.75)"
check "the window shows both values, pixel by pixel" \
  pictured_as muse-dragged "$work/changed.png" $below_meter
check "the preset's name is typed over" rename_preset "wide 7"
check "the window shows another name" \
  pictured_otherwise muse-renamed "$pictures/muse-dragged.png" $name_area
check "nothing above the name has changed" \
  same_area "$pictures/muse-dragged.png" "$pictures/muse-renamed.png" $above_name
timeout 10 import -silent -window root "$pictures/muse-screen.png"

check "MusE saves the song" save_song || finish
check "the song has one dragged value" song_says baseFreq 0.75
check "and the other" song_says width 0.75
check "the song has the effect's state" \
  python3 "$tests/musesong.py" chunk "$song" "$work/muse.chunk"
check "the state has the dragged values and the others as before" \
  parameters_are "$work/muse.chunk" 0.75 0.75 0 1 0
check "its first preset has the typed name" preset_is_called "$work/muse.chunk" "wide 7"
check "MusE ends properly with the window open" quit_muse
check "the window is gone" wait_for 5 window_is_gone

check "MusE opens the song again" start_muse || finish
check "the window shows what was saved, pixel by pixel" \
  pictured_as muse-reopened "$pictures/muse-renamed.png" $below_meter
# As VST 2 it gets its state after it has been switched on, and glides.
if [ -n "${LV2_URI:-}" ]; then
  check "what is played into it becomes what the rule says, bit by bit" sounds_like $changed \
    "MusE:In 1-0" "MusE:In 1-1" "MusE:Out 1-0" "MusE:Out 1-1"
  check "MusE saves the song again" save_song
fi
check "MusE ends properly again" quit_muse
finish
