#!/usr/bin/env bash
# real_keys.sh PROGRAM: keys that the X server delivers, as from a keyboard, abort both displays, and
# another key does not.
set -euo pipefail
program=$1
out=$(mktemp)
trap 'rm -f "$out"' EXIT

# wait_for WHAT COMMAND...: until the command succeeds, at most 20 s.
wait_for() {
    local what=$1
    shift
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    echo "waited in vain for $what"
    exit 1
}

for display in window status; do
    "$program" --run $display --hold-at 42 >"$out" &
    running=$!
    wait_for "the $display display" xdotool search --onlyvisible --pid $running
    wait_for "42 percent" grep -q holding "$out"
    xdotool key x
    sleep 0.5
    kill -0 $running || { echo "$display: the run ended before Escape"; exit 1; }
    "$(dirname "$0")/../../scripts/press-escape" $running
    wait $running
    grep -q '^stopped at row' "$out" || { echo "$display: $(cat "$out")"; exit 1; }
    echo "$display: $(tail -n 1 "$out")"
done
