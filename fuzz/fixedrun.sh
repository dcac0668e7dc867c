#!/bin/sh
# Runs a fuzz target on its seeds and on inputs made from them, the same ones every time.
# Usage: fixedrun.sh PROGRAM SEEDS-FOLDER LIBFUZZER-OPTIONS...
set -eu
program=$1
seeds=$2
shift 2
# As a list of files, not as a folder, into which the fuzzer would put what it finds. The
# standard error stream is closed for the program under test, whose diagnostics would fill the
# log, not for the fuzzer.
list=$(find "$seeds" -type f | sort | paste -s -d , -)
[ -n "$list" ] || { echo "no seeds in $seeds" >&2; exit 1; }
# Without random addresses: compared pointers flow into the mutations.
fixed=
setarch -R true 2>/dev/null && fixed="setarch -R"
exec $fixed "$program" -seed=1 -seed_inputs="$list" -close_fd_mask=2 -print_final_stats=1 \
  -artifact_prefix="$PWD/" "$@"
