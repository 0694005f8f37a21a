#!/usr/bin/env bash
# run.sh WANTED PROGRAM ARGUMENTS...: the program succeeds, and prints a line that begins as wanted.
set -euo pipefail
wanted=$1
shift
out=$("$@") || { echo "exit status $?: $out"; exit 1; }
echo "$out"
grep -q "^$wanted" <<<"$out"
