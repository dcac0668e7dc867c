#!/usr/bin/env bash
# Audacity scans the bundle, renders through it with a user preset, and remembers the settings; every sample is compared.
# Usage: tests/hosts/audacity.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

needs audacity
settings="$XDG_CONFIG_HOME/audacity"
temporary="$work/temporary"
rate=44100
seconds=3

# Nothing asks, nothing looks for updates; exports are floats without dither.
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

# start_audacity PIPE: 0 without, 1 with the scripting pipe, which the scan of a first start would disturb. A killed
# Audacity would offer to recover its project: nothing of it stays.
start_audacity() {
  python3 "$tests/audacitypipe.py" --free || give_up "Audacity can run once for every user"
  rm -rf "$temporary"
  mkdir -p "$temporary"
  sed -i "s/^mod-script-pipe=[0-9]$/mod-script-pipe=$1/" "$settings/audacity.cfg"
  timeout 180 audacity >"$work/audacity.log" 2>&1 &
  audacity_process=$!
  started+=($audacity_process)
}
stop_audacity() {
  kill "$audacity_process" 2>/dev/null
  wait "$audacity_process" 2>/dev/null
}

windows() { timeout 5 xwininfo -root -tree; }
window_is_open() { windows | grep -q '"Audacity": ("audacity" "Audacity")'; }

# Commands through the pipe; where they do not end, the windows that are open tell why.
tell_audacity() {
  timeout 60 python3 "$tests/audacitypipe.py" "$@" || { windows | grep '("audacity"'; return 1; }
}

registry="$settings/pluginregistry.cfg"
module_is_known() { grep -q '^\[ModuleDateTime\]' "$settings/audacity.cfg" && window_is_open; }
is_registered() { grep -q '^Symbol=Orv Trelvan$' "$registry"; }
registered_as_expected() {
  local entry expected
  entry=$(sed -n '/^Path=.*Trelvan\.so;0$/,/^\[/p' "$registry")
  for expected in 'Symbol=Orv Trelvan' 'Name=Orv Trelvan' 'Vendor=Orv' 'Enabled=1' 'Valid=1' 'EffectType=Process' \
    'EffectFamily=VST' 'EffectInteractive=1' 'EffectAutomatable=1'; do
    grep -qxF -- "$expected" <<<"$entry" || { echo "not in the registry: $expected"; echo "$entry"; return 1; }
  done
}

# render OUT COMMAND: a new Audacity imports the sound, applies the effect and exports.
render() {
  local out=$1
  shift
  start_audacity 1
  wait_for 60 window_is_open || { echo "no window"; tail -n 5 "$work/audacity.log"; return 1; }
  tell_audacity "Import2: Filename=$sound_file" "SelectAll:" "$1" "Export2: Filename=$out NumChannels=2"
  local status=$?
  stop_audacity
  return $status
}

start_screen
first_configuration
start_audacity 0
check "the first start finds the effect in its bundle" wait_for 90 is_registered || finish
wait_for 60 module_is_known || give_up "Audacity does not know its scripting pipe"
stop_audacity
check "it is registered as an effect that is enabled" registered_as_expected

# The state goes in as user preset "p1", a chunk that widen made. The effect is switched on before it gets the chunk, so
# it glides from its first preset to the chunk's.
sound_file="$work/stereo.wav"
sound make "$sound_file" $rate $seconds 2
init=0,0.5,0,1,0
state() { python3 "$tests/audacitysettings.py" "$1" "$settings/pluginsettings.cfg" "$2" "$3"; }
save_state() { timeout 60 "$build/widen" --quiet --plugin "$module" --save-state "$@"; }
reference_render "$sound_file" "$work/rule-preset.wav" $rate $init 0.75,0.25,0.3,1,1
save_state "$work/preset.chunk" --width 0.75 --base-freq 0.25 --emphasis 0.3 --phase on || give_up "widen saves no state"
state put UserPresets/p1 "$work/preset.chunk"
check "a user preset is applied" render "$work/preset.wav" 'OrvTrelvan: Use_Preset="User Preset:p1"' || finish
check "it renders as the rule says, glide and all, bit by bit" sound same "$work/preset.wav" "$work/rule-preset.wav"

# Audacity has saved the state that it found in the effect at first.
save_state "$work/init.chunk"
check "Audacity saved the effect's first state" state take FactoryDefaults "$work/factory.chunk"
check "it is the chunk that widen saves, byte by byte" cmp "$work/factory.chunk" "$work/init.chunk"

# The next start takes up the settings used last, and saves what the effect makes of them.
reference_render "$sound_file" "$work/rule-last.wav" $rate $init 0.5,0.8,0,1,0
save_state "$work/last.chunk" --width 0.5 --base-freq 0.8
state put CurrentSettings "$work/last.chunk"
check "the settings used last are applied" render "$work/last.wav" 'OrvTrelvan:'
check "they render as the rule says, bit by bit" sound same "$work/last.wav" "$work/rule-last.wav"
check "Audacity saved them again" state take SavedState "$work/saved.chunk"
check "they are the chunk that widen saved, byte by byte" cmp "$work/saved.chunk" "$work/last.chunk"

finish
