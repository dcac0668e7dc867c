#!/usr/bin/env bash
# factory.sh SOURCE CMAKE: the factory's presets are not those that the person who builds has stored,
# whose preferences on macOS are not found by the home folder. widen is a stand-in that lists a
# preset and notes under which names it would look for stored ones.
set -euo pipefail
source=$1
cmake=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat >"$work/widen" <<'WIDEN'
#!/usr/bin/env bash
echo "${TRELVAN_PREFERENCES:-none}" "$HOME" "$XDG_CONFIG_HOME" >>"$(dirname "$0")/names"
[ "$3" != --list-presets ] || echo '*  1  Init'
WIDEN
chmod +x "$work/widen"
TRELVAN_PREFERENCES=com.orv.trelvan "$cmake" "-DWIDEN=$work/widen" "-DPLUGIN=$work" \
  "-DFOLDER=$work/presets" -P "$source/cmake/FactoryPresets.cmake"
[ "$(wc -l <"$work/names")" -eq 3 ] || { echo "WRONG not asked for bank, list and preset"; exit 1; }
names=$(sort -u "$work/names")
expected="com.orv.trelvan.factory $work/presets.home $work/presets.home"
[ "$names" = "$expected" ] || { echo "WRONG $names"; exit 1; }
