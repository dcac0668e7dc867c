# How each benchmark of the plug-in begins: sourced after `set -euo pipefail`, it goes to the top
# folder and installs what is missing; nobody's stored defaults are read.
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=build/release
log=$build/bench.log
tools/dependencies.sh test
mkdir -p "$build"
XDG_CONFIG_HOME=$(mktemp -d)
export XDG_CONFIG_HOME
trap 'rm -rf "$XDG_CONFIG_HOME"' EXIT

# logged COMMAND...: what it says is shown where it fails.
logged() { "$@" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }; }
configure() { logged cmake --preset release -DTRELVAN_BENCHMARKS=ON; }
build_benchmark() { logged cmake --build "$build" --target "$1"; }
