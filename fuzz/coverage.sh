#!/bin/bash
# Shows how many lines of the files that each fuzz target is about its inputs reach.
# Usage: coverage.sh FOLDER
# (FOLDER/TARGET/inputs: as search.sh leaves them; the seeds are run too. Builds build/coverage.)
set -euo pipefail
cd "$(dirname "$0")/.."
folder=$(realpath "$1")
build=build/coverage
instrument="-fprofile-instr-generate -fcoverage-mapping"
# What the fuzzers are instrumented for is in a sanitizer's runtime, for the programs without them.
link="-fprofile-instr-generate -fsanitize=undefined"
CC=clang CXX=clang++ cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -g0 -DNDEBUG $instrument" \
  -DCMAKE_EXE_LINKER_FLAGS="$link" -DCMAKE_MODULE_LINKER_FLAGS="$link" \
  -DTRELVAN_FUZZERS=ON -DTRELVAN_TESTS=OFF >/dev/null
cmake --build $build --target fuzz/all >/dev/null

# about TARGETS FILE...: the targets' inputs together.
about() {
  local targets=$1 profile target programs=()
  shift
  profile=$build/${targets// /-}
  rm -f "$profile".*.profraw
  for target in $targets; do
    programs+=(${programs:+-object} "$build/fuzz/fuzz_$target")
    LLVM_PROFILE_FILE=$profile.%p.profraw "$build/fuzz/fuzz_$target" -runs=0 -close_fd_mask=3 \
      "$folder/$target/inputs" "$build/fuzz/corpus/$target" 2>/dev/null
  done
  llvm-profdata merge -o "$profile.profdata" "$profile".*.profraw
  echo "$targets:"
  llvm-cov report "${programs[@]}" -instr-profile "$profile.profdata" 2>/dev/null |
    awk -v files="$*" 'BEGIN {split(files, list, " ")}
      {for (i in list) if (substr($1, length($1) - length(list[i]) + 1) == list[i])
        printf "  %-48s %7s of %4d lines\n", list[i], $10, $8}'
}

images=presetsystem/image
about "preset bank midimap" $images/imagereader.cpp $images/image.cpp $images/newpresetheader.cpp
about "oldfile oldchunk" $images/oldimagereader.cpp $images/image.cpp
about writers $images/imagewriter.cpp $images/bytewriter.h
about setchunk presetsystem/store/bankimages.cpp presetsystem/store/cpresetsystemeffect.cpp
about editorimages presetsystem/bar/presetfiles.cpp presetsystem/store/bankimages.cpp \
  platform/xplatfile.cpp
about hostcalls plugin/audioeffect.cpp plugin/audioeffectx.cpp effect/trelvan.cpp \
  effect/trelvanparameters.cpp effect/trelvanprocess.cpp presetsystem/store/cpresetsystemeffect.cpp
about preferences platform/linux/preferencestore.cpp platform/linux/sharedfile.cpp \
  presetsystem/bar/storedpresets.cpp
about dialoganswers editor/base/linux/filedialog.cpp editor/base/linux/programchoice.cpp \
  editor/base/linux/filechoice.cpp \
  platform/linux/childprogram.cpp platform/linux/desktopdialog.cpp
about textfield editor/controls/linux/editedtext.cpp editor/controls/linux/textfield.cpp \
  platform/validtext.cpp
about arguments host/options/arguments.cpp
about values host/state/values.cpp
about desktopsettings editor/base/linux/xsettings.cpp
about soundfile host/sound/soundreader.cpp host/sound/completeness.cpp host/sound/inputfile.cpp
