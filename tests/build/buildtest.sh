#!/usr/bin/env bash
# One test of the build. Usage: buildtest.sh CASE SOURCE TOOLKIT CMAKE
set -euo pipefail
case=$1
source=$2
toolkit=$3
cmake=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "$1" >&2; exit 1; }

# As on a machine that has no more than the build needs, and without a preset.
generator=Ninja
configure() {
  "$cmake" -S "$source" -B "$work/build" -G "$generator" -DTRELVAN_TOOLKIT_SOURCE="$toolkit" \
    -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON "$@" >"$work/said" 2>&1 ||
    { cat "$work/said" >&2; exit 1; }
  grep '"command":' "$work/build/compile_commands.json" >"$work/commands"
  grep -F " -c $source/" "$work/commands" | grep -vF " -c $toolkit/" >"$work/ours"
  grep -F " -c $toolkit/" "$work/commands" >"$work/theirs"
}

# What tools/build.sh asks CMake for, with doubles for all that it calls, on the named system.
asked_for() {
  local system=$1
  shift
  mkdir -p "$work/bin" "$work/tree"
  cp -r "$source/tools" "$source/CMakePresets.json" "$work/tree"
  printf '#!/bin/sh\n' >"$work/tree/tools/dependencies.sh"
  printf '#!/bin/sh\necho "$@" >>"%s"\n' "$work/asked" >"$work/bin/cmake"
  printf '#!/bin/sh\necho %s\n' "$system" >"$work/bin/uname"
  chmod +x "$work/bin/cmake" "$work/bin/uname"
  rm -f "$work/asked"
  PATH=$work/bin:$PATH "$work/tree/tools/build.sh" "$@" >"$work/said"
  grep -e --preset "$work/asked" | tr ' ' '\n'
}
# ./test with doubles for all that it calls; 2000 tests pass in each step, or one does not.
make_test_tree() {
  mkdir -p "$work/tree/tools" "$work/tree/build/"{release,tsan,asan} "$work/bin"
  cp "$source/test" "$work/tree"
  for tool in dependencies sources build; do
    printf '#!/bin/sh\n' >"$work/tree/tools/$tool.sh"
  done
  printf '#!/bin/sh\necho clang-format version 99.\n' >"$work/bin/clang-format"
  cat >"$work/bin/ctest" <<'EOF'
#!/usr/bin/env bash
for ((i = 1; i <= 2000; ++i)); do
  printf '          Start %4d: Room.Case%d\n' $i $i
  printf '%4d/2000 Test #%-4d: Room.Case%d ....   Passed    0.01 sec\n' $i $i $i
done
[ -z "$ONE_FAILS" ] && { printf '\n100%% tests passed, 0 tests failed out of 2000\n'; exit; }
printf '2001/2001 Test #2001: Room.Bad ....***Failed    0.01 sec\nit is 2 and not 1\n'
printf '\n99%% tests passed, 1 tests failed out of 2001\n'
exit 8
EOF
  chmod +x "$work/bin/"* "$work/tree/tools/"*
}
# A tree of version 1.2.3, all of it committed, whose changelog is CHANGELOG; what would be built
# first says so and ends it.
make_release_tree() {
  rm -rf "$work/tree"
  mkdir -p "$work/tree/tools"
  cp "$source/tools/release.sh" "$work/tree/tools"
  printf '#!/bin/sh\necho begun\nexit 1\n' >"$work/tree/tools/dependencies.sh"
  chmod +x "$work/tree/tools/dependencies.sh"
  echo 'project(Trelvan VERSION 1.2.3 LANGUAGES CXX)' >"$work/tree/CMakeLists.txt"
  printf '%b' "$1" >"$work/tree/CHANGELOG.md"
  git -C "$work/tree" init -q
  git -C "$work/tree" add .
  git -C "$work/tree" -c user.name=n -c user.email=e commit -q -m m
}
# refuses WORDS [ARGUMENT...]: the release says that, and nothing is begun.
refuses() {
  if "$work/tree/tools/release.sh" "${@:2}" >"$work/said" 2>&1; then fail "it was made"; fi
  grep -qF -- "$1" "$work/said" || fail "not \"$1\" but: $(cat "$work/said")"
  if [ "$1" != begun ] && grep begun "$work/said"; then fail "it went on after: $1"; fi
}
# The last one of an option counts.
expect_last() { [ "$(grep "^-D$1=" | tail -n 1)" = "-D$1=$2" ] || fail "$1 is not $2"; }

case $case in
  NeedsNeitherPresetNorTests)
    # As README says: of what CMake could build with, ninja alone is installed for it.
    generator=$(sed -nE 's/^cmake (-G (\w+) )?.*-B build\/mine .*/\2/p' "$source/README.md")
    generator=${generator:-Unix Makefiles}
    configure
    ninja -C "$work/build" -t query Trelvan widen >"$work/targets" ||
      fail "there is no plug-in or no widen to build"
    if grep -E " -c $source/(tests|bench|fuzz)/" "$work/commands"; then
      fail "tests are compiled"
    fi
    ;;
  HasTestsAndBenchmarksByPresetOnly)
    cd "$source"
    "$cmake" --preset release -N >"$work/preset"
    for option in TRELVAN_TESTS TRELVAN_BENCHMARKS; do
      grep -qF "$option=\"ON\"" "$work/preset" || fail "$option is not on by the preset release"
    done
    configure
    for option in TRELVAN_TESTS TRELVAN_BENCHMARKS; do
      grep -q "^$option:BOOL=OFF" "$work/build/CMakeCache.txt" || fail "$option is on by itself"
    done
    for preset in debug asan tsan; do
      "$cmake" --preset $preset -N >"$work/preset"
      grep -qF 'TRELVAN_TESTS="ON"' "$work/preset" || fail "$preset has no tests"
      grep -qF 'TRELVAN_BENCHMARKS="OFF"' "$work/preset" || fail "$preset measures"
    done
    ;;
  RefusesWhatItDoesNotKnow)
    mkdir -p "$work/tree"
    cp -r "$source/tools" "$source/CMakePresets.json" "$work/tree"
    printf '#!/bin/sh\ntouch "%s"\n' "$work/installed" >"$work/tree/tools/packages.sh"
    for words in "build.sh" "build.sh relase" "build.sh release --test" "dependencies.sh --prnt" \
      "dependencies.sh tests" "dependencies.sh build test" "arm64.sh --released"; do
      if "$work/tree/tools/"$words >"$work/said" 2>&1; then fail "$words: accepted"; fi
      grep -q '^usage: ' "$work/said" || fail "$words: $(cat "$work/said")"
    done
    [ ! -e "$work/installed" ] || fail "something was installed"
    ;;
  MakesWarningsErrorsWhereItIsAsked)
    configure
    if grep -e ' -Werror' "$work/ours"; then fail "warnings are errors for who did not ask"; fi
    configure -DTRELVAN_WERROR=ON
    if grep -ve ' -Werror ' "$work/ours"; then fail "a warning in this would be let through"; fi
    if grep -e ' -Werror ' "$work/theirs"; then fail "the toolkit is not ours to mend"; fi
    ;;
  OptimisesWhatSoundsForTheEmulator)
    configure -DCMAKE_BUILD_TYPE=Emulated -DCMAKE_CXX_FLAGS_EMULATED=-DNDEBUG
    for room in effect plugin presetsystem/store; do
      grep -F " -c $source/$room/" "$work/ours" | grep -vF /vstpluginmain.cpp >"$work/sound" ||
        fail "nothing of $room/ is compiled"
      if grep -ve ' -O3 ' "$work/sound"; then fail "this is not as a release has it"; fi
    done
    if grep -F " -c $source/editor/" "$work/ours" | grep -e ' -O[1-9s]'; then
      fail "nobody looks at the window there"
    fi
    ;;
  PassesAToolkitOfSomebodysOwnOn)
    cd "$work"
    export TRELVAN_TOOLKIT_SOURCE=mine
    asked_for Linux release Trelvan | expect_last TRELVAN_TOOLKIT_SOURCE "$work/mine"
    ;;
  TellsOfAFolderThatCannotBeBuiltIn)
    mkdir -p "$work/tree/build/release"
    cp -r "$source/tools" "$source/CMakePresets.json" "$work/tree"
    printf '#!/bin/sh\n' >"$work/tree/tools/dependencies.sh"
    echo "what the last build said" >"$work/tree/build/release/build.log"
    chmod 755 "$work"
    chmod -R a+rX "$work/tree"
    chmod -R a-w "$work/tree/build"
    user=()  # permissions are nothing to root
    [ "$(id -u)" != 0 ] || user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    "${user[@]}" "$work/tree/tools/build.sh" release >"$work/said" 2>&1 && echo built >>"$work/said"
    chmod -R u+w "$work/tree/build"
    [ "$(cat "$work/said")" = \
      "$work/tree/build/release is somebody else's, and cannot be built in by you" ] ||
      fail "$(cat "$work/said")"
    ;;
  WorksBelowAFolderOfAnyName)
    tree="$work/it's one & the same"
    mkdir "$tree"
    ln -s "$source"/* "$tree"
    rm -f "$tree/build"
    "$cmake" -S "$tree" -B "$tree/build" -G Ninja -DTRELVAN_TOOLKIT_SOURCE="$toolkit" \
      >"$work/said" 2>&1 || fail "$(cat "$work/said")"
    # What commands of ours make, of each kind one; and a source of each.
    "$cmake" --build "$tree/build" --target trelvan_kernel_baseline host/plotfont.cpp \
      "$tree/build/Trelvan.vst/Contents/Resources/bmp00142.png" >"$work/said" 2>&1 ||
      fail "$(cat "$work/said")"
    ;;
  KnowsItsSourcesWithoutVersionControl)
    mkdir -p "$work/tree/build"
    for entry in "$source"/[a-z]*; do
      [ "${entry##*/}" = build ] || cp -r "$entry" "$work/tree"
    done
    touch "$work/tree/build/made.cpp"
    "$work/tree/tools/sources.sh" '*.cpp' '*.h' '*.mm' | tr '\0' '\n' >"$work/alone"
    grep -qx host/cli/main.cpp "$work/alone" || fail "there is no main"
    grep -qx platform/mac/alert.mm "$work/alone" || fail "of several endings one is missing"
    if grep build/made "$work/alone"; then fail "this is no source"; fi
    if [ -e "$source/.git" ] && git -C "$source" rev-parse 2>/dev/null; then
      "$source/tools/sources.sh" '*.cpp' '*.h' '*.mm' | tr '\0' '\n' | LC_ALL=C sort >"$work/known"
      LC_ALL=C sort "$work/alone" | LC_ALL=C comm -13 - "$work/known" >"$work/missing"
      [ ! -s "$work/missing" ] || fail "these are missing: $(cat "$work/missing")"
    fi
    ;;
  EndsWithOneTotalOnAScreen)
    make_test_tree
    (ONE_FAILS='' PATH=$work/bin:$PATH "$work/tree/test" >"$work/said" 2>&1) ||
      fail "$(tail -n 20 "$work/said")"
    tail -n 1 "$work/said" | grep -qE ' in all: 6000 tests passed$' || fail "$(cat "$work/said")"
    [ "$(wc -l <"$work/said")" -le 45 ] || fail "$(wc -l <"$work/said") lines are no screenful"
    ;;
  ShowsWhatFailedAndWhy)
    make_test_tree
    if (ONE_FAILS=yes PATH=$work/bin:$PATH "$work/tree/test" >"$work/said" 2>&1); then
      fail "it passed"
    fi
    grep -q 'Room.Bad' "$work/said" || fail "$(cat "$work/said")"
    grep -qx 'it is 2 and not 1' "$work/said" || fail "$(cat "$work/said")"
    if grep 'Room.Case' "$work/said"; then fail "this one passed"; fi
    ;;
  ReleasesOnlyWhatIsCommittedAndDescribed)
    make_release_tree '## [Unreleased]\n\n## [1.2.3] - 2026-01-02\n\n- A line.\n'
    refuses begun  # nothing stands in its way
    refuses usage --twice
    touch "$work/tree/new"
    refuses "not committed"
    make_release_tree '## [Unreleased]\n\n- A line.\n\n## [1.2.3] - 2026-01-02\n'
    refuses "in no release"
    make_release_tree '## [Unreleased]\n\n## [1.2.3]\n\n- A line.\n'
    refuses "with a date"
    make_release_tree '## [Unreleased]\n\n## [1.2.2] - 2026-01-02\n\n- A line.\n'
    refuses "no section of 1.2.3"
    ;;
  LetsWarningsStopTheTestsOnly)
    asked_for Linux release Trelvan widen | expect_last TRELVAN_WERROR OFF
    asked_for Linux release --tests | expect_last TRELVAN_WERROR ON
    ;;
  LetsNoWarningStopAMac)
    asked_for Darwin release --tests | expect_last TRELVAN_WERROR OFF
    asked_for Darwin asan --tests | expect_last TRELVAN_WERROR OFF
    ;;
  *)
    fail "no such test: $case"
    ;;
esac
