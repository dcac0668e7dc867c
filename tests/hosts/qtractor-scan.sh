#!/usr/bin/env bash
# Qtractor's scanner takes the binary for a plug-in with the right channels,
# parameters and features.
# Usage: tests/hosts/qtractor-scan.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

scanner=$(find /usr/lib /usr/libexec -name qtractor_plugin_scan -type f 2>/dev/null | head -n 1)
[ -n "$scanner" ] || give_up "Qtractor is not installed (tests/hosts/install.sh installs it)"

# Name, audio ins:outs, MIDI ins:outs, controls ins:outs, features, file, number in the
# file, unique ID.
scan() {
  local answer expected="VST|Orv Trelvan|2:2|0:0|5:0|GUI,EXT,RT|$module|0|0x546c766e"
  answer=$(timeout 30 "$scanner" <<<"VST2:$module")
  grep -qxF -- "$expected" <<<"$answer" ||
    { printf 'expected: %s\nanswered: %s\n' "$expected" "$answer"; return 1; }
}
check "the scanner describes the effect" scan
finish
