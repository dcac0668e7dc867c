#!/usr/bin/env bash
# Ardour's transport obeys the space bar with the pointer over the effect's window and after every
# kind of click in it. That it rolls is seen in the effect's meter, which noise moves away from its
# middle.
# Usage: tests/hosts/ardour-keyboard.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$tests/ardourcommon.sh"
. "$tests/windowcommon.sh"
. "$tests/ardourwindow.sh"

minutes_of_noise=5  # more than all of this takes
song="$work/song"

# The meter is in its middle in silence, and elsewhere while noise goes through.
is_silent() {
  picture ardour-keyboard && same_area "$pictures/ardour-keyboard.png" \
    "$pictures/ardour-keyboard-silent.png" $meter_area
}
is_heard() { ! is_silent; }
space_bar() { timeout 5 xdotool key space; }
# The meter glides for a moment after the transport has stopped.
starts_and_stops() {
  space_bar && wait_for 20 is_heard || { echo "it does not roll"; return 1; }
  space_bar && wait_for 10 is_silent || { echo "it does not stop"; return 1; }
}

# press X Y [BUTTON]: one click there.
press() { mouse "$1" "$2" && sleep 0.3 && timeout 5 xdotool click "${3:-1}" && sleep 0.4; }
type_name() { press 140 229 && timeout 10 xdotool type --delay 60 wide && sleep 0.3; }
key() { timeout 5 xdotool key "$1" && sleep 0.6; }
plain_x=140 plain_y=206  # of the window, where there is no control

# In the words of the statement that they are checked with.
hover() { mouse 190 166 && sleep 0.4; }
drag_a_slider() { drag "$(handle_x 0.25)" $freq_y "$(handle_x 0.5)"; }
click_a_slider() { press "$(handle_x 0.5)" $freq_y; }
click_a_switch() { press 190 166; }
step() { press 242 228; }
choose_a_preset() { press 212 228 && press 80 104; }
leave_the_list_by_escape() { press 212 228 && key Escape; }
leave_the_list_by_a_click() { press 212 228 && press $plain_x 249; }
enter_a_name() { type_name && key Return; }
leave_a_name_by_escape() { type_name && key Escape; }
leave_a_name_by_a_click() { type_name && press $plain_x $plain_y; }
open_and_leave_the_about_panel() { press 140 192 && press 150 100; }
store_a_default() { press 44 236 && press 44 236; }
turn_the_wheel() { mouse 150 $depth_y && sleep 0.3 && timeout 5 xdotool click 4 && sleep 0.6; }

noise="$work/noise.wav"
sound make "$noise" $rate $((minutes_of_noise * 60)) 2
seconds=$((minutes_of_noise * 60))
check "the scanner finds the effect in its bundle" scan || finish
check "a session with the effect is made and saved" \
  new_session "$song" "$noise" 2 "0=0.75 1=0.25 2=0.3 3=1 4=1" || finish
python3 "$tests/ardoursession.py" with-window "$song/mix.ardour" || finish

start_screen
check "the window manager runs" start_window_manager || finish
prepare_ardour || finish
check "the sound server runs" start_sound_server $rate || finish
check "Ardour opens the session with the effect's window" start_ardour || finish
picture ardour-keyboard-silent
check "its own window is active" timeout 10 xdotool windowactivate --sync "$(main_window)"
sleep 1  # until it has the keyboard as well
check "the space bar starts and stops the transport" starts_and_stops || finish
for done_before in hover drag_a_slider click_a_slider click_a_switch step choose_a_preset \
  leave_the_list_by_escape leave_the_list_by_a_click enter_a_name leave_a_name_by_escape \
  leave_a_name_by_a_click open_and_leave_the_about_panel store_a_default turn_the_wheel; do
  $done_before
  check "it does after: ${done_before//_/ }" starts_and_stops
done
timeout 10 import -silent -window root "$pictures/ardour-keyboard-screen.png"
check "Ardour saves the session" save_session
check "Ardour ends properly with the window open" quit_ardour
finish
