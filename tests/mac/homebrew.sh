#!/usr/bin/env bash
# homebrew.sh SOURCE: tools/dependencies-mac.sh with stand-ins for Apple's and Homebrew's programs.
# As Homebrew does, the stand-in refuses a whole list for one name that is no formula.
set -euo pipefail
source=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat >"$work/brew" <<'BREW'
#!/usr/bin/env bash
formulas=" cmake ninja pkg-config libsndfile libebur128 cli11 nlohmann-json"
formulas+=" cairo lowdown librsvg"
formulas+=" googletest clang-format "
folder=$(dirname "$0")
case $1 in
  list) test -e "$folder/installed-$3" ;;
  install)
    for name in "${@:3}"; do
      [[ $formulas == *" $name "* ]] ||
        { echo "No available formula with the name \"$name\"." >&2; exit 1; }
    done
    for name in "${@:3}"; do touch "$folder/installed-$name"; done ;;
esac
BREW
printf '#!/bin/sh\n' >"$work/xcode-select"
chmod +x "$work/brew" "$work/xcode-select"
export PATH=$work:$PATH

# By the script that calls it, which on a Mac does no more: a toolkit that is named but not there is
# told of, and not fetched instead.
printf '#!/bin/sh\necho Darwin\n' >"$work/uname"
chmod +x "$work/uname"
if said=$(TRELVAN_TOOLKIT_SOURCE=$work "$source/tools/dependencies.sh" 2>&1); then
  echo "WRONG it takes a folder for the toolkit's that has nothing in it"
  exit 1
fi
[[ $said == *"no vstgui/vstgui.h in $work"* ]] || { echo "WRONG $said"; exit 1; }

for kind in build test; do
  "$source/tools/dependencies-mac.sh" --print "$kind" | grep '^missing: ' ||
    { echo "WRONG $kind: what is missing is not printed"; exit 1; }
  "$source/tools/dependencies-mac.sh" "$kind" | grep '^installing ' ||
    { echo "WRONG $kind: nothing is installed"; exit 1; }
  again=$("$source/tools/dependencies-mac.sh" "$kind")
  [ -z "$again" ] || { echo "WRONG $kind: not silent when all is there: $again"; exit 1; }
done
