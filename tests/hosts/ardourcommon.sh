# What the tests with Ardour share: its scanner, sessions made and changed by its interpreter, and
# its export. Sourced after common.sh.
library=$(ls -d /usr/lib/ardour[0-9]* 2>/dev/null | sort -V | tail -n 1)
[ -n "$library" ] || give_up "Ardour is not installed (tests/hosts/install.sh installs it)"
version=${library#/usr/lib/ardour}
[ "$version" = 7 ] || give_up "the session files here are Ardour 7's, and this is Ardour $version"
needs "ardour$version-lua" "ardour$version-export"
cache="$XDG_CACHE_HOME/ardour$version/vst"
rate=48000
seconds=3

scan() {
  LD_LIBRARY_PATH=$library timeout 60 "$library/ardour-vst-scanner" -f -v "$module"
  local entry
  entry=$(cat "$cache"/*.v2i) || return 1
  local expected
  for expected in 'id="1416394350"' 'name="Orv Trelvan"' 'creator="Orv"' 'category="Mastering"' \
    'n_inputs="2"' 'n_outputs="2"' 'n_midi_inputs="0"' 'is_instrument="0"' \
    'can_process_replace="1"' 'has_editor="1"'; do
    grep -qF -- "$expected" <<<"$entry" ||
      { echo "not in the scan: $expected"; echo "$entry"; return 1; }
  done
}

# session FOLDER NAME [VARIABLE=VALUE...]: runs ardour.lua; its last word is "saved".
session() {
  local folder=$1 name=$2
  shift 2
  env SESSION_FOLDER="$folder" SESSION="$name" "$@" \
    timeout 60 "ardour$version-lua" "$tests/ardour.lua" >"$work/lua.log" 2>&1
  grep -qx saved "$work/lua.log" || { cat "$work/lua.log"; return 1; }
}

# new_session FOLDER SOUND CHANNELS PARAMETERS: a session "mix" with the sound and the
# effect on one track.
new_session() {
  local folder=$1 file=$2 channels=$3
  session "$folder" mix NEW=1 RATE=$rate CHANNELS="$channels" PARAMETERS="$4" || return 1
  cp "$file" "$folder/interchange/$(basename "$folder")/audiofiles/sound.wav" || return 1
  python3 "$tests/ardoursession.py" \
    place "$folder/mix.ardour" sound.wav $((rate * seconds)) $rate "$channels"
}

# Ardour 7.3's export itself breaks off now and then, without any plug-in too: three tries.
export_session() {
  local folder=$1 name=$2 out=$3
  for _ in 1 2 3; do
    rm -f "$out"
    timeout 60 "ardour$version-export" -b float -o "$out" "$folder" "$name" >"$work/export.log" 2>&1
    grep -q "Done" "$work/export.log" && [ -s "$out" ] && return 0
  done
  cat "$work/export.log"
  return 1
}

# renders_like FOLDER NAME REFERENCE: all of the export, bit by bit.
renders_like() {
  export_session "$1" "$2" "$work/export.wav" && sound same "$work/export.wav" "$3"
}
