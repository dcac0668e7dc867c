#!/usr/bin/env bash
# Takes the documents' pictures anew: what `widen --plot` draws of two recordings, by the commands
# that the manual names, and Trelvan in hosts, from the screens that tests/hosts has left
# (./test --hosts). Look at each before you keep it.
# Usage: docs/pictures/refresh.sh [BUILD_FOLDER]   (build/release)
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(realpath "${1:-$here/../../build/release}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# keep FROM NAME OPTIONS...: with 200 colours, which nobody tells from all, in a third of the bytes.
keep() {
  local from=$1 name=$2
  shift 2
  convert "$from" "$@" -strip +dither -colors 200 "PNG8:$here/$name.png"
}

cd "$work"
cp /usr/share/sonic-pi/samples/{guit_e_slide,bass_woodsy_c}.flac .
sed -n 's/^   widen \(.* --plot [a-z]*\.png\)$/\1/p' "$here/../manual/manual.rst" >commands
while read -r arguments; do
  [ -e "${arguments%% *}" ] || continue  # not of these two
  eval "$build/widen --quiet $arguments"
  keep "${arguments##* }" "$(basename "${arguments##* }" .png)"
done <commands

screens=$build/pictures
[ ! -e "$screens/ardour-screen.png" ] ||
  keep "$screens/ardour-screen.png" ardour -trim +repage -crop 1000x540+0+0 +repage
[ ! -e "$screens/audacity-screen.png" ] ||
  keep "$screens/audacity-screen.png" audacity -trim +repage
[ ! -e "$screens/muse-screen.png" ] ||
  keep "$screens/muse-screen.png" muse -crop 700x840+0+184 +repage
