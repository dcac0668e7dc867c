#!/usr/bin/env bash
# MusE's scanner describes the effect and its parameters.
# Usage: tests/hosts/muse-scan.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

needs muse_plugin_scan
linux_vst=16  # MusE's number for this kind of plug-in

# The scanner writes into a file that must be there.
scan() {
  : >"$work/scan.xml"
  timeout 30 muse_plugin_scan -t $linux_vst -f "$module" -o "$work/scan.xml" -p || return 1
  local expected
  for expected in "<plugin file=\"$module\" label=\"Orv Trelvan\">" '<name>Orv Trelvan</name>' \
    '<maker>Orv</maker>' '<uniqueID>1416394350</uniqueID>' '<inports>2</inports>' \
    '<outports>2</outports>' '<ctlInports>5</ctlInports>'; do
    grep -qF -- "$expected" "$work/scan.xml" ||
      { echo "not in the scan: $expected"; cat "$work/scan.xml"; return 1; }
  done
}

# Names are keys of controllers there: these five, in this order.
parameters_in_order() {
  local found
  found=$(grep -o '<port name="[^"]\+"' "$work/scan.xml" | cut -d '"' -f 2 | paste -s -d ' ' -)
  [ "$found" = "width baseFreq emphasis process phase" ] || { echo "found: $found"; return 1; }
}

check "the scanner describes the effect" scan || finish
check "its parameters have their names, in order" parameters_in_order
finish
