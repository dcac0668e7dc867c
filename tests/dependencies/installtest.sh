#!/usr/bin/env bash
# One test of tools/packages.sh and of the toolkit's fetching, with doubles for apt and sudo.
# Usage: installtest.sh CASE SOURCE
set -euo pipefail
case=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
log=$work/log

fail() { printf '%s\n' "$1" >&2; exit 1; }

# Nothing else is found than the doubles and these.
mkdir "$work/bin"
for tool in bash env cat sed grep awk sort mkdir rm dirname uname touch cmake sha256sum tar; do
  ln -s "$(command -v $tool)" "$work/bin/$tool"
done
double() {
  rm -f "$work/bin/$1"
  { echo '#!/usr/bin/env bash'; cat; } >"$work/bin/$1"
  chmod +x "$work/bin/$1"
}
# All that is said, and what is run as it is run.
say() { PATH=$work/bin "$@" >>"$log" 2>&1; }
expect() { grep -qE -e "$1" "$log" || fail "no \"$1\" in: $(cat "$log")"; }
refuse() { if grep -E -e "$1" "$log"; then fail "\"$1\" was not to be said or run"; fi; }

double id <<<'echo 0'
double dpkg <<<'echo amd64'  # --print-architecture
# twice: for both processors; foreign: for the other one; common: for all; half: configured badly
double dpkg-query <<'EOF'
printf '%s\n' 'twice amd64 installed' 'twice i386 installed' 'foreign i386 installed' \
  'common all installed' 'half amd64 half-configured'
EOF
# Of everything that is to be installed it knows one more that it needs.
double apt-get <<EOF
if [ "\$1" = -s ]; then
  for word in "\${@:5}" more; do echo "Inst \$word (1 Debian [amd64])"; done
else
  echo "RUN apt-get \$*" >>"$log"  # what it prints while it installs is not shown
fi
EOF
# Each has a million bytes to fetch and 2,048,000 on the disk.
double apt-cache <<'EOF'
[ $# -gt 2 ] || { echo "E: No packages found" >&2; exit 100; }
for name in "${@:3}"; do
  printf 'Package: %s\nInstalled-Size: 2000\nSize: 1000000\nDescription: Size: 7\n\n' "$name"
done
EOF
packages=$source/tools/packages.sh

# The script that fetches, with nothing to install, and a mirror.
make_tree() {
  mkdir -p "$work/tree"
  cp -r "$source/tools" "$source/cmake" "$work/tree"
  printf '#!/bin/sh\n' >"$work/tree/tools/packages.sh"
  double apt-get <<<'echo http://mirror.invalid/debian'
}

case $case in
  CountsWhatIsThereForThisProcessor)
    say "$packages" twice foreign common half missing
    expect '^RUN apt-get install .* foreign half missing$'
    ;;
  IsSilentWhereAllIsThere)
    say "$packages" twice common
    [ ! -s "$log" ] || fail "$(cat "$log")"
    ;;
  SaysNumberAndSizeBeforeItInstalls)
    say "$packages" twice foreign missing
    expect '^installing 3 packages: 3.0 MB to fetch, 6.1 MB on the disk .*foreign missing'
    [ "$(cut -d' ' -f1-3 "$log" | tail -n 2)" = 'installing 3 packages:
RUN apt-get install' ] || fail "$(cat "$log")"
    ;;
  GoesOnWhereAnInstallationWasInterrupted)
    double apt-get <<EOF
if [ "\$1" = -s ]; then echo "Conf half (1 Debian [amd64])"; exit; fi
echo "RUN apt-get \$*" >>"$log"
EOF
    say "$packages" half
    expect '^installing 0 packages: 0.0 MB to fetch, .*\(half '
    expect '^RUN apt-get install .* half$'
    ;;
  PrintsEachSizeAndInstallsNothing)
    say "$packages" --print twice missing
    expect '^ +2.0 MB  missing$'
    expect '^ +2.0 MB  more$'
    expect '^2 packages: 2.0 MB to fetch, 4.1 MB on the disk$'
    refuse 'RUN'
    ;;
  PrintsNamesWhereAptKnowsNoSizes)
    double apt-get <<<'exit 100'
    say "$packages" --print twice missing
    expect 'missing$'
    ;;
  TellsWhatRootHasToDoWithoutSudo)
    double id <<<'echo 1000'
    if say "$packages" missing; then fail "it says that all is there"; fi
    expect 'apt-get install --no-install-recommends missing$'
    refuse 'RUN'
    if say "$source/tools/asroot.sh" true; then fail "it ran without root"; fi
    expect 'root has to run this.*true$'
    ;;
  InstallsForEverybodyAtAnyUmask)
    umask 077
    double id <<<'echo 1000'
    double sudo <<<'echo "RUN umask $(umask)"'
    say "$source/tools/asroot.sh" true
    expect '^RUN umask 0?022$'
    ;;
  TellsWhyTheToolkitCouldNotBeFetched)
    make_tree
    double apt-helper <<'EOF'
echo "Err:1 $2"
echo half >"$3"
echo other >"$3.FAILED"
echo "E: Failed to fetch $2  404  Not Found [IP: 192.0.2.1 80]" >&2
exit 100
EOF
    if say "$work/tree/tools/dependencies.sh"; then fail "it says that all is there"; fi
    expect '^  Failed to fetch http://mirror.invalid/debian/.*  404  Not Found'
    expect 'TRELVAN_TOOLKIT_SOURCE='
    [ -z "$(ls -A "$work/tree/.deps")" ] || fail "left behind: $(ls -A "$work/tree/.deps")"
    ;;
  TakesAToolkitOfSomebodysOwn)
    make_tree
    double apt-helper <<<'echo RUN fetched'
    mkdir -p "$work/own/vstgui"
    touch "$work/own/vstgui/vstgui.h"
    export TRELVAN_TOOLKIT_SOURCE=$work/own
    say "$work/tree/tools/dependencies.sh"
    [ ! -e "$work/tree/.deps" ] || fail "something was unpacked"
    export TRELVAN_TOOLKIT_SOURCE=$work/own/vstgui
    if say "$work/tree/tools/dependencies.sh"; then fail "a folder without it was taken"; fi
    expect "no vstgui/vstgui.h in $work/own/vstgui"
    refuse 'RUN'
    ;;
  *)
    fail "no such test: $case"
    ;;
esac
