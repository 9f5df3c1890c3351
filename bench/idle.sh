#!/usr/bin/env bash
# The program sitting at the selector: how often its threads wake and how much of a
# core it uses. Starts the real program under Xvfb (unless there is a display), lets it
# settle, then reads /proc over the interval:
#   wake-ups: voluntary context switches of all its threads (a thread that slept and woke)
#   CPU:      time on the CPU of all its threads (schedstat, in ns) over the wall time
#
#   bench/idle.sh [--build DIR] [--seconds N] [--settle N] [-- QT_OPTIONS...]
#   bench/idle.sh --pid PID [--seconds N]     a program already running, left running
#
# Environment such as QT_SCALE_FACTOR=2 passes through; Qt's own options after "--"
# (e.g. -- -qwindowgeometry 1280x1000) go to the program.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build
seconds=20
settle=3
pid=
while [ $# -gt 0 ]; do
    case "$1" in
        --build) build=$2; shift 2 ;;
        --seconds) seconds=$2; shift 2 ;;
        --settle) settle=$2; shift 2 ;;
        --pid) pid=$2; shift 2 ;;
        --) shift; break ;;
        *) echo "usage: bench/idle.sh [--build DIR] [--seconds N] [--settle N] [--pid PID] [-- QT_OPTIONS...]" >&2; exit 2 ;;
    esac
done
if [ -z "$pid" ]; then
    program=$build/corvanna
    [ -x "$program" ] || { echo "bench/idle.sh: no program at $program" >&2; exit 2; }
    if [ -z "${DISPLAY:-}" ]; then
        exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" --build "$build" --seconds "$seconds" --settle "$settle" -- "$@"
    fi
    data=$(mktemp -d)
    "$program" --data-dir "$data" --seed 1 "$@" >/dev/null 2>&1 &
    pid=$!
    trap 'kill "$pid" 2>/dev/null; wait "$pid" 2>/dev/null; rm -rf "$data"' EXIT
    sleep "$settle"
fi
kill -0 "$pid" 2>/dev/null || { echo "bench/idle.sh: the program is not running" >&2; exit 1; }

# One line per thread: tid name voluntary nonvoluntary cpu_ns
sample() {
    for t in /proc/"$pid"/task/*; do
        local tid=${t##*/} name vol invol cpu
        name=$(tr ' ' '_' <"$t/comm" 2>/dev/null) || continue
        vol=$(awk '/^voluntary_ctxt_switches/ {print $2}' "$t/status" 2>/dev/null) || continue
        invol=$(awk '/^nonvoluntary_ctxt_switches/ {print $2}' "$t/status" 2>/dev/null) || continue
        cpu=$(awk '{print $1}' "$t/schedstat" 2>/dev/null) || continue
        echo "$tid $name $vol $invol $cpu"
    done
}

before=$(sample)
t0=$(date +%s%N)
sleep "$seconds"
after=$(sample)
t1=$(date +%s%N)

# A thread that came or went in between counts from zero or up to its last reading.
awk -v wall_ns=$((t1 - t0)) '
    NR == FNR { vol0[$1] = $3; inv0[$1] = $4; cpu0[$1] = $5; next }
    {
        dv = $3 - vol0[$1]; di = $4 - inv0[$1]; dc = $5 - cpu0[$1]
        byname[$2] += dv; cpuname[$2] += dc; vol += dv; inv += di; cpu += dc
    }
    END {
        s = wall_ns / 1e9
        printf "selector idle over %.1f s: %.1f wake-ups/s, %.3f%% of a core (%.1f preemptions/s)\n", \
            s, vol / s, 100 * cpu / wall_ns, inv / s
        printf "  by thread, wake-ups/s and %% of a core:"
        for (n in byname) printf "  %s %.1f %.3f%%", n, byname[n] / s, 100 * cpuname[n] / wall_ns
        printf "\n"
    }' <(echo "$before") <(echo "$after")
