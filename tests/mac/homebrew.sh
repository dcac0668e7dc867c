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
formulas+=" googletest google-benchmark clang-format "
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

for kind in build test; do
  "$source/tools/dependencies-mac.sh" --print "$kind" | grep '^missing: ' ||
    { echo "WRONG $kind: what is missing is not printed"; exit 1; }
  "$source/tools/dependencies-mac.sh" "$kind" | grep '^installing ' ||
    { echo "WRONG $kind: nothing is installed"; exit 1; }
  again=$("$source/tools/dependencies-mac.sh" "$kind")
  [ -z "$again" ] || { echo "WRONG $kind: not silent when all is there: $again"; exit 1; }
done
