#!/bin/sh
# Searches with a fuzz target for some time, and says how many inputs all searches have run so far.
# Usage: search.sh BUILD TARGET SECONDS FOLDER
# (in FOLDER/TARGET: the inputs that were found, logs, and what failed)
set -eu
build=$1
target=$2
seconds=$3
folder=$4/$2
mkdir -p "$folder/inputs"
log=$folder/$(date +%Y%m%d-%H%M%S).log
status=0
xargs "$build/fuzz/fuzz_$target" -max_total_time="$seconds" -close_fd_mask=2 -print_final_stats=1 \
  -artifact_prefix="$folder/" "$folder/inputs" "$build/fuzz/corpus/$target" \
  <"$build/fuzz/options/$target" >"$log" 2>&1 || status=$?
cat "$folder"/*.log | awk -v target="$target" \
  '/^stat::number_of_executed_units:/ {sum += $2} END {print target ": " sum + 0 " inputs"}'
[ "$status" = 0 ] || echo "$target failed: see $log" >&2
exit "$status"
