#!/usr/bin/env bash
# real_keys.sh PROGRAM: keys that the X server delivers, as from a keyboard, abort both displays, and
# other keys do not.
set -euo pipefail
program=$1
out=$(mktemp)
trap 'rm -f "$out"' EXIT

# wait_for WHAT COMMAND...: until the command succeeds, at most a minute.
wait_for() {
    local what=$1
    shift
    for _ in $(seq 600); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    echo "waited in vain for $what:"
    cat "$out"
    exit 1
}

# press LETTER: presses it in the program's newest window, and succeeds when the run tells of it.
press() {
    local window
    window=$(xdotool search --onlyvisible --pid $running | tail -n 1)
    xdotool windowfocus "$window" && xdotool key "$1"
    grep -q "^key ${1^}" "$out"
}

for display in window status; do
    "$program" --run $display --hold-at 42 >"$out" &
    running=$!
    wait_for "42 percent" grep -q holding "$out"
    # A run that tells of the second letter has gone on after the first.
    wait_for "the first letter" press x
    wait_for "the second letter" press y
    "$(dirname "$0")/../../scripts/press-escape" $running
    wait $running
    grep -q '^stopped at row' "$out" || { echo "$display: $(cat "$out")"; exit 1; }
    echo "$display: $(tail -n 1 "$out")"
done
