#!/usr/bin/env bash
# Tierfall games per second by its bot (the soak), with a fixed seed, median of RUNS:
# per second of wall time as the soak reports it, and per second of CPU time (user +
# system), which a busy machine disturbs less.
#
#   bench/gamerate.sh [--build DIR] [--games N] [--seed S] [--runs R]
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
games=5000
seed=1
runs=3
while [ $# -gt 0 ]; do
    case "$1" in
        --build) build=$2; shift 2 ;;
        --games) games=$2; shift 2 ;;
        --seed) seed=$2; shift 2 ;;
        --runs) runs=$2; shift 2 ;;
        *) echo "usage: bench/gamerate.sh [--build DIR] [--games N] [--seed S] [--runs R]" >&2; exit 2 ;;
    esac
done
soak=$build/bench/soak
[ -x "$soak" ] || soak=$build/tests/soak/soak
[ -x "$soak" ] || { echo "bench/gamerate.sh: no soak in $build (-DCORVANNA_BENCH=ON)" >&2; exit 2; }

median() { sort -n | awk '{v[NR] = $1} END {print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2}'; }
out=$(mktemp)
trap 'rm -f "$out"' EXIT
walls=() cpus=()
for _ in $(seq "$runs"); do
    /usr/bin/time -f "cpu_s %U %S" -o "$out.time" "$soak" --games "$games" --seed "$seed" >"$out"
    grep -q '^soak: PASS' "$out" || { cat "$out"; exit 1; }
    walls+=("$(sed -n 's/^soak: PASS.* \([0-9.]*\) games\/s.*/\1/p' "$out")")
    cpus+=("$(awk -v g="$games" '/^cpu_s/ {printf "%.0f", g / ($2 + $3)}' "$out.time")")
done
rm -f "$out.time"
echo "Tierfall by its bot, $games games, seed $seed, median of $runs: $(printf '%s\n' "${walls[@]}" | median) games/s of wall time, $(printf '%s\n' "${cpus[@]}" | median) games per CPU second"
echo "  wall: ${walls[*]}"
echo "  cpu:  ${cpus[*]}"
