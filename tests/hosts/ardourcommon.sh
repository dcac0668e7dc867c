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

# What both interfaces are tried with: sounds, the rule's renders of them by two settings (width,
# baseFreq, emphasis, process, phase), and where the session is.
first=0.75,0.25,0.3,1,1
second=0.75,0.6,0.3,1,1
stereo="$work/stereo.wav"
mono="$work/mono.wav"
song="$work/song"
make_sounds() {
  sound make "$stereo" $rate $seconds 2
  reference_render "$stereo" "$work/first.wav" $rate $first $first
  reference_render "$stereo" "$work/second.wav" $rate $second $second
  sound make "$mono" $rate $seconds 1
  sound both-sides "$mono" "$work/both.wav"
  reference_render "$work/both.wav" "$work/mono-rule.wav" $rate $first $first
}

# A session of the first settings, and changed to the second ones.
check_sessions() {
  check "a session with the effect is made and saved" \
    new_session "$song" "$stereo" 2 "0=0.75 1=0.25 2=0.3 3=1 4=1" || finish
  check "the session renders as the rule says, bit by bit" \
    renders_like "$song" mix "$work/first.wav"
  check "a loaded session has its parameters, takes a new one and is saved" \
    session "$song" mix EXPECTED="0=0.75 1=0.25 2=0.3 3=1 4=1" PARAMETERS="1=0.6" SAVE_AS=changed
  check "the changed session renders the change" renders_like "$song" changed "$work/second.wav"
  check "the session that was saved before renders as before" \
    renders_like "$song" mix "$work/first.wav"
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
