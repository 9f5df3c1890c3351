#!/usr/bin/env bash
# Start-up to the first paint: the selector in its real window (bench_app) against a
# bare Qt window with one button (bench_bare), each started RUNS times, alternately,
# from the moment the process is started to the end of its first window's first paint.
#
#   bench/startup.sh [--build DIR] [--runs N]
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
runs=15
while [ $# -gt 0 ]; do
    case "$1" in
        --build) build=$2; shift 2 ;;
        --runs) runs=$2; shift 2 ;;
        *) echo "usage: bench/startup.sh [--build DIR] [--runs N]" >&2; exit 2 ;;
    esac
done
app=$build/bench/bench_app
bare=$build/bench/bench_bare
if [ ! -x "$app" ] || [ ! -x "$bare" ]; then
    echo "bench/startup.sh: build bench_app and bench_bare in $build (-DCORVANNA_BENCH=ON)" >&2
    exit 2
fi
if [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" --build "$build" --runs "$runs"
fi

ms_to_first_paint() {
    local t0 shown
    t0=$(date +%s%N)
    shown=$("$@" startup 2>/dev/null | awk '/^shown_ns/ {print $2}')
    echo $(((shown - t0) / 1000000))
}
median() { sort -n | awk '{v[NR] = $1} END {print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2}'; }

"$bare" startup >/dev/null 2>&1; "$app" startup >/dev/null 2>&1  # warm the caches
apps=() bares=()
for _ in $(seq "$runs"); do
    bares+=("$(ms_to_first_paint "$bare")")
    apps+=("$(ms_to_first_paint "$app")")
done
a=$(printf '%s\n' "${apps[@]}" | median)
b=$(printf '%s\n' "${bares[@]}" | median)
echo "start-up to first paint, median of $runs: selector $a ms, bare window $b ms, ratio $(awk "BEGIN {printf \"%.2f\", $a / $b}")"
echo "  selector: ${apps[*]}"
echo "  bare:     ${bares[*]}"
