#!/usr/bin/env bash
# One test of the names that tools/dependencies.sh installs, with doubles for apt.
# Usage: packagestest.sh CASE SOURCE
set -euo pipefail
case=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export PACKAGES_WORK=$work

fail() { echo "$1" >&2; exit 1; }

double() {
  { echo '#!/usr/bin/env bash'; cat; } >"$work/bin/$1"
  chmod +x "$work/bin/$1"
}
names_of() { (cd "$work/tree" && PATH=$work/bin:$PATH tools/dependencies.sh "$1"); }

# The script alone: nothing is installed or fetched, the names are printed.
mkdir -p "$work/tree" "$work/bin"
cp -r "$source/tools" "$source/cmake" "$work/tree"
mkdir -p "$work/tree/.deps"
toolkit=$work/tree/.deps/vstgui-$(sed -n 's/^toolkit_version=//p' "$source/tools/dependencies.sh")
mkdir -p "$toolkit/vstgui/lib"
touch "$toolkit/.complete"
echo 'other.invoke = false;' >"$toolkit/vstgui/lib/finally.h"
printf '#!/usr/bin/env bash\nprintf "%%s\\n" "$@"\n' >"$work/tree/tools/packages.sh"
double sudo <<<'exec "$@"'
double apt-get <<<'[ "$1" = update ] && touch "$PACKAGES_WORK/updated"'
# As on a system of versions that no Debian has: clang 97, GNUstep 0.98. What it needs besides
# stands there too.
double apt-cache <<'EOF'
[ -e "$PACKAGES_WORK/known" ] || [ -e "$PACKAGES_WORK/updated" ] ||
  { echo "E: No packages found" >&2; exit 100; }
[ "${LC_ALL:-}" = C ] || { printf '%s\n' clang '  Braucht: clang-97'; exit; }
printf '%s\n' clang '  Depends: clang-97' libgnustep-gui-dev '  Depends: gnustep-gui-runtime' \
  '  Depends: libgnustep-base-dev' '  Depends: libgnustep-gui0.98' \
  '  Depends: <gnustep-layout-multiarch>' '    gnustep-multiarch'
EOF
versioned='clang-97
gnustep-back0.98-cairo
libc++-97-dev
libclang-rt-97-dev
lld-97
llvm-97'

case $case in
  FollowTheVersionsOfTheSystem)
    touch "$work/known"
    names_of test >"$work/names"
    [ "$(grep -E '9[78]' "$work/names" | sort)" = "$versioned" ] || fail "$(cat "$work/names")"
    # Nor is there one with a version that is written down.
    if grep -E 'LLVM|GNUSTEP|-1[0-9]|0\.[0-8]' "$work/names"; then
      fail "these are of one Debian only"
    fi
    [ ! -e "$work/updated" ] || fail "the lists of packages were read again without need"
    ;;
  AreLookedUpAfterAnUpdateWhereNoneIsKnown)
    names_of test >"$work/names"
    [ "$(grep -E '9[78]' "$work/names" | sort)" = "$versioned" ] || fail "$(cat "$work/names")"
    ;;
  AreRefusedWhereTheSystemHasNone)
    double apt-cache <<<'exit 100'
    if names_of test >"$work/names" 2>"$work/said"; then fail "nothing was refused"; fi
    grep -q clang "$work/said" || fail "what is missing is not named"
    [ ! -s "$work/names" ] || fail "something was to be installed"
    ;;
  AreNotLookedUpForTheBuildAlone)
    double apt-cache <<<'touch "$PACKAGES_WORK/asked"; exit 100'
    names_of build >"$work/names"
    grep -qx g++ "$work/names" || fail "$(cat "$work/names")"
    [ ! -e "$work/asked" ] || fail "the versions of the tests' tools were asked for"
    ;;
  *)
    fail "no such test: $case"
    ;;
esac
