# What the tests with Audacity share: its configuration, its start and its scripting pipe. Sourced
# after common.sh.
needs audacity
settings="$XDG_CONFIG_HOME/audacity"
temporary="$work/temporary"
rate=44100
seconds=3

# first_configuration [COMMAND]: nothing asks, nothing looks for updates; exports are floats without
# dither. The command of Audacity's menus gets a key.
effect_key=Ctrl+Alt+9
first_configuration() {
  mkdir -p "$settings"
  cat >"$settings/audacity.cfg" <<CFG
NewPrefsInitialized=1
PrefsVersion=1.1.1r1
[Version]
Major=3
Minor=2
Micro=4
[Locale]
Language=en
[GUI]
ShowSplashScreen=0
[Update]
UpdateNoticeShown=1
DefaultUpdatesChecking=0
[Directories]
TempDir=$temporary
[Module]
mod-script-pipe=0
${1:+[NewKeys]
$1=$effect_key}
[SamplingRate]
DefaultProjectSampleRate=$rate
[Quality]
HQDitherAlgorithmChoice=None
DitherAlgorithmChoice=None
[FileFormats]
ExportFormat_SF1=65542
[FileFormats/ExportFormat_SF1_Type]
WAV_10000=6
CFG
}

# start_audacity PIPE: 0 without, 1 with the scripting pipe, which the scan of a first start would
# disturb. A killed Audacity would offer to recover its project: nothing of it stays.
start_audacity() {
  python3 "$tests/audacitypipe.py" --free ||
    { echo "Audacity can run once for every user"; return 1; }
  rm -rf "$temporary"
  mkdir -p "$temporary"
  sed -i "s/^mod-script-pipe=[0-9]$/mod-script-pipe=$1/" "$settings/audacity.cfg"
  timeout -k 5 600 audacity >"$work/audacity.log" 2>&1 &
  audacity_process=$!
  started+=($audacity_process)
}
stop_audacity() { end_process "$audacity_process"; }

window_is_open() { grep -q '"Audacity": ("audacity" "Audacity")' <<<"$(all_windows)"; }

# Commands through the pipe; where they do not end, the windows that are open tell why.
tell_audacity() {
  timeout 60 python3 "$tests/audacitypipe.py" "$@" ||
    { all_windows | grep '("audacity"'; return 1; }
}

registry="$settings/pluginregistry.cfg"
module_is_known() { grep -q '^\[ModuleDateTime\]' "$settings/audacity.cfg" && window_is_open; }
is_registered() { grep -q '^Symbol=Orv Trelvan$' "$registry"; }
# registered_as PATH [LINE...]: a pattern for the effect's path, and lines of its entry besides those
# that both interfaces have.
registered_as() {
  local entry expected
  entry=$(sed -n "/^Path=$1\$/,/^\\[/p" "$registry")
  shift
  for expected in 'Symbol=Orv Trelvan' 'Vendor=Orv' 'Enabled=1' 'Valid=1' 'EffectType=Process' \
    'EffectAutomatable=1' "$@"; do
    grep -qxF -- "$expected" <<<"$entry" ||
      { echo "not in the registry: $expected"; cat "$registry"; return 1; }
  done
}

# render SOUND CHANNELS OUT COMMAND: a new Audacity imports the sound, applies the
# effect and exports.
render() {
  local in=$1 channels=$2 out=$3
  shift 3
  start_audacity 1 || return 1
  wait_for 60 window_is_open || { echo "no window"; tail -n 5 "$work/audacity.log"; return 1; }
  tell_audacity "Import2: Filename=$in" "SelectAll:" "$1" \
    "Export2: Filename=$out NumChannels=$channels"
  local status=$?
  stop_audacity
  return $status
}

# The effect's dialogue, its window or controls of Audacity's own in it. Sets dialogue_width,
# dialogue_x and dialogue_y, its pixels on the screen.
find_dialogue() {
  local place
  place=$(grep -m 1 '"Orv Trelvan": ("audacity"' <<<"$(all_windows)")
  place=$(sed -n 's/.*  *\([0-9]*\)x[0-9]*+[-0-9]*+[-0-9]*  +\([0-9]*\)+\([0-9]*\)$/\1 \2 \3/p' \
    <<<"$place")
  read -r dialogue_width dialogue_x dialogue_y <<<"$place"
  [ -n "$dialogue_y" ] || { echo "no dialogue"; return 1; }
}
dialogue_is_gone() { ! find_dialogue; }
# click_dialogue X Y: from its upper left corner.
click_dialogue() {
  find_dialogue && timeout 5 xdotool mousemove $((dialogue_x + $1)) $((dialogue_y + $2)) &&
    sleep 0.3 && timeout 5 xdotool click 1
}
# The button at the right of its upper edge.
click_apply() { find_dialogue && click_dialogue $((dialogue_width - 48)) 21; }

# The first start scans; it leaves the effect registered and the scripting pipe known.
scan_with_audacity() {
  start_audacity 0 || return 1
  wait_for 90 is_registered || { echo "not registered"; tail -n 5 "$work/audacity.log"; return 1; }
  wait_for 60 module_is_known || { echo "Audacity does not know its scripting pipe"; return 1; }
  stop_audacity
}

sound_file="$work/stereo.wav"
init=0,0.5,0,1,0  # the effect's settings before it gets others

state() { python3 "$tests/audacitysettings.py" "$1" "$settings/pluginsettings.cfg" "$2" "$3"; }
save_state() { timeout 60 "$build/widen" --quiet --plugin "$module" --save-state "$@"; }
