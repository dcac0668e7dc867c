#!/usr/bin/env bash
# Types what docs/hosts.md tells people to type for each host, as it stands there, in a tree and a
# home of its own.
# Usage: tests/hosts/documented.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
needs ardour7-lua ardour7-export audacity muse_plugin_scan xvfb-run
unset VST_PATH LXVST_PATH

tree=$work/tree
mkdir -p "$tree/build"
ln -s "$build" "$tree/build/release"
ln -s "$tests/.." "$tree/tests"

# commands_for HOST: the blocks below the document's heading of that name.
commands_for() {
  awk -v heading="## $1" '
    /^## / { inside = $0 == heading }
    inside && /^```/ { typed = !typed; next }
    inside && typed' "$tests/../../docs/hosts.md"
}

# typed HOST WORDS...: all of its commands in one shell; each of WORDS is in what they print.
typed() {
  local host=$1 expected said
  shift
  commands_for "$host" >"$work/$host.sh"
  [ -s "$work/$host.sh" ] || { echo "the document has no commands for $host"; return 1; }
  # xvfb-run's audacity is ended after its two minutes.
  said=$(cd "$tree" && timeout -k 5 150 bash "$work/$host.sh" 2>&1 && cat scan.xml 2>/dev/null)
  for expected; do
    grep -qF -- "$expected" <<<"$said" || { echo "not said: $expected"; echo "$said"; return 1; }
  done
}
# Its exporter breaks off now and then, without a plug-in too.
typed_for_ardour() {
  for _ in 1 2 3; do
    rm -rf "$tree/build/demo"
    typed Ardour "Found Plugin: 'nvlT' Orv Trelvan" "saved" "the same samples" && return 0
  done
  return 1
}

check "Qtractor's scanner says what the document has" \
  typed Qtractor 'VST|Orv Trelvan|2:2|0:0|5:0|GUI,EXT,RT|' '|0|0x546c766e'
check "MusE's scanner says it" \
  typed MusE 'label="Orv Trelvan"' '<maker>Orv</maker>' '<inports>2</inports>' \
  '<outports>2</outports>' '<ctlInports>5</ctlInports>'
check "Ardour scans, renders the same samples as widen" typed_for_ardour
check "Audacity registers the effect" \
  typed Audacity 'Symbol=Orv Trelvan' 'Enabled=1' 'Valid=1' 'EffectType=Process'
finish
