#!/usr/bin/env bash
# machocheck.sh SOURCE BUILD TOOLKIT [OPTION...]: builds the plug-in for macOS with Debian's clang
# and lld, and looks at what came of it. BUILD is kept: a second run builds what has changed.
set -euo pipefail
source=$1
build=$2
toolkit=$3
shift 3
# For two processors at once clang makes folders for temporary files and leaves them.
TMPDIR=$(realpath -m "$build")/temporary
export TMPDIR
rm -rf "$build/Trelvan.vst" "$TMPDIR"
mkdir -p "$TMPDIR"
log=$build/build.log
quietly() {
  "$@" >"$log" 2>&1 || {
    grep -E -A8 'error|CMake Error|FAILED' "$log" | tail -n 100 || tail -n 100 "$log"
    exit 1
  }
}
# -O1: nobody runs it. The manual is made elsewhere.
macho=$source/tests/mac/macho
quietly cmake -S "$source" -B "$build" -G Ninja --toolchain "$macho/toolchain.cmake" \
  -DCMAKE_PROJECT_INCLUDE="$macho/project.cmake" -DMACHO_TOOLKIT_SOURCE="$toolkit" \
  -DTRELVAN_WERROR=ON -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O1 -DNDEBUG" \
  -DCMAKE_OBJCXX_FLAGS_RELEASE="-O1 -DNDEBUG" -DTRELVAN_TESTS=OFF \
  -DCMAKE_HAVE_LIBC_PTHREAD=1 -DTRELVAN_BENCHMARKS=OFF -DTRELVAN_RST2PDF=OFF "$@"
quietly cmake --build "$build" --target Trelvan widen_host --parallel 2
exec python3 "$macho/check.py" "$build" "$(sed -n 's/^MACHO_LLVM:.*=//p' "$build/CMakeCache.txt")"
