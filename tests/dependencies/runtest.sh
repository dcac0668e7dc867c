#!/usr/bin/env bash
# One test of ./run or ./test, in a small tree with doubles of the build, of widen and of the hosts.
# Usage: runtest.sh CASE SOURCE
set -euo pipefail
case=$1
source=$2
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT

fail() { printf '%s\n' "$1" >&2; exit 1; }

# A name that shells and CMake have to take as it is.
tree="$work/it's one & the same (\$HOME)"
mkdir -p "$tree/tools" "$tree/tests/hosts" "$tree/resources/demo" "$work/elsewhere"
cp "$source/run" "$source/test" "$tree"
cp "$source/resources/demo/recording.txt" "$tree/resources/demo"
cat >"$tree/tools/build.sh" <<'EOF'
#!/usr/bin/env bash
cd "$(dirname "$0")/.."
mkdir -p build/release
echo "built: $*"
echo "toolkit: ${TRELVAN_TOOLKIT_SOURCE:-}"
printf '#!/usr/bin/env bash\necho "widen in $PWD: $*"\n' >build/release/widen
chmod +x build/release/widen
EOF
for script in install run; do
  printf '#!/usr/bin/env bash\necho "hosts: %s $*"\n' "$script" >"$tree/tests/hosts/$script.sh"
done
chmod +x "$tree/tools/build.sh" "$tree"/tests/hosts/*.sh
# run [ARGUMENT...]: from elsewhere, by the path in $run; what is said is in $work/out and said.
run=$tree/run
run() {
  (cd "$work/elsewhere" && as_user "$run" "$@") >"$work/out" 2>"$work/said" ||
    fail "it ended with $?: $(cat "$work/said")"
}
# Permissions are nothing to root.
as_user() { "$@"; }
make_read_only() {
  chmod -R a-w "$tree"
  chmod 755 "$work"
  chmod 777 "$work/elsewhere"
  if [ "$(id -u)" = 0 ]; then
    as_user() { setpriv --reuid=65534 --regid=65534 --clear-groups "$@"; }
  fi
}

case $case in
  BuildsAndPassesItsArgumentsOn)
    run "a file.wav" -o b.wav
    grep -qx "widen in $work/elsewhere: a file.wav -o b.wav" "$work/out" ||
      fail "$(cat "$work/out")"
    grep -q '^built: ' "$work/said" || fail "nothing was built"
    ;;
  TakeAToolkitFromWhereTheyAreCalled)
    printf '#!/bin/sh\necho "toolkit: $TRELVAN_TOOLKIT_SOURCE"\n' >"$tree/tools/install.sh"
    chmod +x "$tree/tools/install.sh"
    for command in "run --help" "run --install" "test --hosts"; do
      run=$tree/${command% *}
      TRELVAN_TOOLKIT_SOURCE="my toolkit" run "${command#* }"
      grep -qx "toolkit: $work/elsewhere/my toolkit" "$work/out" "$work/said" ||
        fail "$command: $(cat "$work/out" "$work/said")"
    done
    ;;
  WorksThroughLinks)
    ln -s "$tree" "$work/tree"
    ln -s ../tree/run "$work/elsewhere/second"
    ln -s second "$work/elsewhere/first"
    run=./first
    run --help
    grep -qx "widen in $work/elsewhere: --help" "$work/out" || fail "$(cat "$work/out")"
    ;;
  RunsABuiltTreeThatCannotBeWritten)
    run --help
    make_read_only
    run --help
    grep -qx "widen in $work/elsewhere: --help" "$work/out" || fail "$(cat "$work/out")"
    [ ! -s "$work/said" ] || fail "$(cat "$work/said")"
    ;;
  PutsTheDemonstrationWhereItWasCalledFromThen)
    run
    grep -qF "listen:  $tree/build/demo/widened.wav" "$work/out" || fail "$(cat "$work/out")"
    rm -r "$tree/build/demo"
    make_read_only
    run
    grep -qF "listen:  $work/elsewhere/widened.wav" "$work/out" || fail "$(cat "$work/out")"
    ;;
  TestIsFoundThroughLinks)
    ln -s "$tree/test" "$work/elsewhere/second"
    ln -s second "$work/elsewhere/first"
    run=./first
    run --hosts
    grep -qx "hosts: run build/release" "$work/out" || fail "$(cat "$work/out")"
    ;;
  TestRefusesWhatItDoesNotKnow)
    for arguments in --host "--hosts twice"; do
      status=0
      # shellcheck disable=SC2086
      "$tree/test" $arguments >"$work/out" 2>"$work/said" || status=$?
      [ "$status" = 2 ] || fail "$arguments: status $status"
      grep -q '^usage: ' "$work/said" || fail "$arguments: $(cat "$work/said")"
      [ ! -s "$work/out" ] || fail "$arguments: it began all the same"
    done
    ;;
  *)
    fail "no such test: $case"
    ;;
esac
