#!/usr/bin/env bash
# layers.sh SOURCE: the layer check passes on the tree, and fails on a tree with an arrow upwards.
set -euo pipefail
check=$1/scripts/check-layers
"$check" "$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/platen/base" "$work/platen/tiff"
echo '#include <platen/tiff/Tiff.h>' >"$work/platen/base/files.h"
if "$check" "$work" >/dev/null; then
    echo "an include from base to tiff passes"
    exit 1
fi
