# What the tests of the window in Ardour share: its program, started with a session whose window
# comes up with it. Sourced after ardourcommon.sh and windowcommon.sh.
program=$(find "$library" -maxdepth 1 -name "ardour-$version.*" | head -n 1)
[ -n "$program" ] || give_up "Ardour's program is missing"

# Without a first-run assistant, and with JACK as the only sound system, so that no
# dialogue asks for one.
prepare_ardour() {
  mkdir -p "$XDG_CONFIG_HOME/ardour$version" "$work/ardour/backends"
  echo 1 >"$XDG_CONFIG_HOME/ardour$version/.a$version"
  find "$library" -mindepth 1 -maxdepth 1 ! -name backends -exec ln -s -t "$work/ardour" {} +
  ln -s "$library/backends/libjack_audiobackend.so" "$work/ardour/backends/"
}

# Ardour's own scale, which it tells LV2's windows, in place of the desktop's. It counts in 1024ths
# of a per cent.
scale_by_ardour() {
  timeout 5 xprop -root -remove RESOURCE_MANAGER || return 1
  cat >"$XDG_CONFIG_HOME/ardour$version/ui_config" <<XML
<?xml version="1.0" encoding="UTF-8"?>
<Ardour>
  <UI>
    <Option name="font-scale" value="$((1024 * 100 * scale))"/>
  </UI>
</Ardour>
XML
}

main_window() { timeout 5 xdotool search --name '^\*?mix - Ardour$' | head -n 1; }

# On a busy machine two threads of Ardour 7.3 write to JACK at once now and then while it opens a
# session: the server finds no request in what comes ("Unknown request") and lets it go, and it
# rolls no more. Three tries.
start_ardour() {
  for _ in 1 2 3; do
    start_once || return 1
    grep -q "JACK HALTED" "$work/gui.log" || return 0
    end_process "$ardour_process"
    rm -f "$song/mix.pending"  # what it would offer to take up again
  done
  tail -n 5 "$work/jackd.log"
  return 1
}
start_once() {
  env GTK_PATH="/etc/ardour$version:$library" LD_LIBRARY_PATH="$library" \
    ARDOUR_DATA_PATH="/usr/share/ardour$version" \
    ARDOUR_CONFIG_PATH="/etc/ardour$version" ARDOUR_DLL_PATH="$work/ardour" \
    timeout -k 5 600 "$program" --no-splash "$song/mix.ardour" >"$work/gui.log" 2>&1 &
  ardour_process=$!
  started+=("$ardour_process")
  wait_for 60 find_window && mouse_away && sleep 1 && find_window ||
    { tail -n 5 "$work/gui.log"; all_windows | grep '"'; return 1; }
}

# keys KEYS: to the main window.
keys() {
  timeout 10 xdotool windowactivate --sync "$(main_window)" && sleep 0.3 &&
    timeout 5 xdotool key "$1"
}

save_session() {
  local before
  before=$(cksum <"$song/mix.ardour")
  keys ctrl+s || return 1
  wait_for 10 session_changed "$before" || { echo "the session was not saved"; return 1; }
}
session_changed() {
  [ "$(cksum <"$song/mix.ardour")" != "$1" ] && grep -q '</Session>' "$song/mix.ardour"
}

quit_ardour() {
  keys ctrl+q && has_ended "$ardour_process" || { tail -n 5 "$work/gui.log"; return 1; }
}
