# What the tests of the window in a host share: finding it on the screen, dragging its sliders with
# the screen's mouse, pictures, and the window that `widen` shows as the one to compare with.
# Sourced after common.sh.
needs openbox xdotool xwininfo xprop import compare convert

pictures=${PICTURES:-$build/pictures}  # stay there to be looked at
scale=${SCALE:-1}                      # the desktop's, as a whole number
[ "$scale" = 1 ] || pictures=$pictures/${scale}00
mkdir -p "$pictures"
resources=$(dirname "$module")/../Resources

# place WIDTH HEIGHT X Y: an area of the window at a scale of 1, in the screen's pixels from the
# window's upper left corner, as WIDTHxHEIGHT+X+Y.
place() { echo "$(($1 * scale))x$(($2 * scale))+$(($3 * scale))+$(($4 * scale))"; }
window_size=$((302 * scale))x$((251 * scale))
below_meter=$(place 302 205 0 46)  # all that stands still while sound goes through
meter_area=$(place 182 15 60 25)
above_name=$(place 302 167 0 46)
name_area=$(place 112 18 90 220)
depth_row=$(place 302 34 0 46)  # caption, slider and value
freq_row=$(place 302 31 0 80)
above_freq_row=$depth_row
below_freq_row=$(place 302 140 0 111)
plain_artwork=$(place 130 14 88 186)  # nothing but the background's own drawing

# A slider's handle moves by 160 pixels from 1, at the left, to 0; at 1 its middle is 71 pixels from
# the window's left.
handle_x() { awk -v value="$1" 'BEGIN { printf "%d", 71 + (1 - value) * 160 + 0.5 }'; }
depth_y=62 freq_y=94  # the handles' middles

# It stays: a server without a client forgets what the desktop has set, the scale with it.
start_window_manager() {
  timeout -k 5 600 openbox --sm-disable >"$work/openbox.log" 2>&1 &
  started+=($!)
  wait_for 10 window_manager_answers && set_scale
}
set_scale() {
  [ "$scale" = 1 ] || timeout 5 xprop -root -f RESOURCE_MANAGER 8s \
    -set RESOURCE_MANAGER "Xft.dpi: $((96 * scale))"
}
window_manager_answers() {
  grep -q "window id" <<<"$(timeout 5 xprop -root _NET_SUPPORTING_WM_CHECK)"
}

block=1024  # frames, the sound server's
# start_sound_server RATE: with a name of its own and without a sound card. It waits for a client
# that is late on a busy machine, for 5000 ms at most, where it would go on without its sound.
start_sound_server() {
  needs jackd jack_wait
  export JACK_DEFAULT_SERVER="trelvan-$$" JACK_NO_AUDIO_RESERVATION=1
  timeout -k 5 600 stdbuf -oL jackd -r -S -t 5000 -d dummy -r "$1" -p $block \
    >"$work/jackd.log" 2>&1 &
  started+=($!)
  timeout 15 jack_wait -w -t 10 >/dev/null 2>&1 || { cat "$work/jackd.log"; return 1; }
}

# sounds_like SETTINGS PORT PORT PORT PORT: whether a host with JACK makes of a sound, played into
# the first two of its ports, what the rule says of an effect with these settings from its start on.
# (After a change a glide may end one float short of its goal, and stays there.)
sounds_like() {
  local rate=48000 seconds=3 settings=$1
  shift
  g++ -std=c++20 -O2 -o "$work/jackround" "$tests/jackround.cpp" -ljack || return 1
  sound make "$work/played.wav" $rate $seconds 2
  reference_render "$work/played.wav" "$work/expected.wav" $rate "$settings" "$settings"
  sound raw "$work/played.wav" |
    timeout 60 "$work/jackround" "$@" >"$work/heard.raw" || return 1
  sound wav $rate "$work/all.wav" <"$work/heard.raw"
  # The player is at both ends, so one of them hears the other a block later.
  sound part "$work/all.wav" "$work/heard.wav" $block $((rate * seconds))
  sound same "$work/heard.wav" "$work/expected.wav"
}

# has_ended ID: a host that was asked to ends by itself, with a status that tells.
has_ended() {
  local status
  wait_for 20 process_is_gone "$1" || { echo "it does not end"; all_windows | grep '"'; return 1; }
  wait "$1"
  status=$?
  end_process "$1"
  [ "$status" = 0 ] || { echo "it ended with status $status"; return 1; }
}
process_is_gone() { ! kill -0 "$1" 2>/dev/null; }

# The plug-in's own window: what has its size on the screen, be it the host's window right around
# it. Sets window, window_x and window_y.
find_window() {
  local found
  found=$(grep -m 1 -- " $window_size+" <<<"$(all_windows)") || return 1
  window=$(awk '{ print $1 }' <<<"$found")
  read -r window_x window_y <<<"$(sed -n 's/.*  +\(-\?[0-9]*\)+\(-\?[0-9]*\)$/\1 \2/p' <<<"$found")"
  grep -q 'Map State: IsViewable' <<<"$(timeout 5 xwininfo -id "$window")"
}
window_is_gone() { ! grep -q -- " $window_size+" <<<"$(all_windows)"; }

# In pixels of a scale of 1 from the window's corner. A drag is two moves: toolkits take the first
# for its start.
mouse() { timeout 5 xdotool mousemove $((window_x + $1 * scale)) $((window_y + $2 * scale)); }
mouse_away() { timeout 5 xdotool mousemove 1270 1010; }
drag() {
  local from_x=$1 y=$2 to_x=$3
  mouse "$from_x" "$y" && sleep 0.3 && timeout 5 xdotool mousedown 1 && sleep 0.2 &&
    mouse $(((from_x + to_x) / 2)) "$y" && sleep 0.2 && mouse "$to_x" "$y" && sleep 0.3 &&
    timeout 5 xdotool mouseup 1 && sleep 0.3 && mouse_away
}

# rename_preset NAME: a press on the name opens an entry, typing replaces what is in it,
# Return confirms.
rename_preset() {
  mouse 140 229 && sleep 0.3 && timeout 5 xdotool click 1 && sleep 0.5 &&
    timeout 10 xdotool type --delay 60 "$1" && sleep 0.3 && timeout 5 xdotool key Return &&
    sleep 0.3 && mouse_away
}

# picture NAME: of the plug-in's window, in $pictures/NAME.png.
picture() { timeout 10 import -silent -window "$window" "$pictures/$1.png"; }

# different_pixels A B AREA: their number. same_area, other_area: whether the pixels of two pictures
# are the same there.
different_pixels() {
  local a=$work/area-a.png b=$work/area-b.png said
  timeout 10 convert "$1" -crop "$3" +repage -alpha off "$a" || return 1
  timeout 10 convert "$2" -crop "$3" +repage -alpha off "$b" || return 1
  said=$(timeout 10 compare -metric AE "$a" "$b" null: 2>&1)
  echo "${said:-nothing}"
}
same_area() {
  local count
  count=$(different_pixels "$1" "$2" "$3")
  [ "$count" = 0 ] || { echo "$1 and $2 differ in $count pixels of $3"; return 1; }
}
other_area() {
  local count
  count=$(different_pixels "$1" "$2" "$3")
  [[ "$count" =~ ^[0-9]+$ ]] && [ "$count" -gt 0 ] ||
    { echo "$1 and $2: $count pixels differ in $3"; return 1; }
}

# pictured_as NAME REFERENCE AREA: takes the picture until it looks as it should; redrawing
# takes a moment.
pictured_as() {
  local name=$1 reference=$2 area=$3
  for _ in $(seq 80); do
    picture "$name" && same_area "$pictures/$name.png" "$reference" "$area" >/dev/null && return 0
    sleep 0.25
  done
  same_area "$pictures/$name.png" "$reference" "$area"
}

# pictured_otherwise NAME OTHER AREA: takes the picture until it differs there.
pictured_otherwise() {
  for _ in $(seq 80); do
    picture "$1" && other_area "$pictures/$1.png" "$2" "$3" >/dev/null && return 0
    sleep 0.25
  done
  other_area "$pictures/$1.png" "$2" "$3"
}

# widen_picture OUT OPTIONS...: what the window looks like in a plain window, on a screen
# without another one.
widen_picture() {
  local out=$1 status
  shift
  timeout -k 5 30 "$build/widen" --quiet --plugin "$module" --editor "$@" >"$work/widen.log" 2>&1 &
  local process=$!
  started+=("$process")
  wait_for 15 find_window && mouse_away && sleep 1 &&
    timeout 10 import -silent -window "$window" "$out"
  status=$?
  end_process "$process"
  wait_for 5 window_is_gone || status=1
  [ "$status" = 0 ] || cat "$work/widen.log"
  return "$status"
}

# The background's drawing comes from its file: a window that stayed empty differs.
shows_artwork() {
  local size=
  [ "$scale" = 1 ] || size=@${scale}x
  pictured_as "$1" "$resources/bmp00128$size.png" "$plain_artwork"
}

# parameters_are CHUNK VALUE...: of a saved state, in order, as widen reads them.
parameters_are() {
  local chunk=$1 found
  shift
  found=$(timeout 30 "$build/widen" --plugin "$module" --state "$chunk" --list-params)
  found=$(awk '{ print $3 + 0 }' <<<"$found" | paste -s -d ' ' -)
  [ "$found" = "$*" ] || { echo "found: $found, expected: $*"; return 1; }
}

# preset_is_called CHUNK NAME: the first preset of a saved state.
preset_is_called() {
  local found
  found=$(timeout 30 "$build/widen" --plugin "$module" --state "$1" --list-presets |
    sed -n '1s/^[* ]*0 *//p')
  [ "$found" = "$2" ] || { echo "found: \"$found\", expected: \"$2\""; return 1; }
}
