#!/usr/bin/env bash
# Times the Help Editor in the studio on a large help project: a synthetic VB6
# project of FORMS forms (bench/make-vb6-project.sh, default 290 forms of 20
# controls) is generated without the compiler, the studio is started on it,
# and a headless Chromium clicks topics of the contents tree, timing each
# click to its page shown and ready to be edited (bench/editor-select.mjs).
# Usage: bench/editor.sh [FORMS] [ROUNDS]
set -euo pipefail
cd "$(dirname "$0")/.."
program=build/bin/scrivant
[ -x "$program" ] || { echo "bench: build the program first (scripts/setup)" >&2; exit 1; }
[ -d tests/e2e/node_modules/playwright-core ] || (cd tests/e2e && npm ci --no-audit --no-fund --loglevel=error)
forms=${1:-290}
rounds=${2:-60}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
bench/make-vb6-project.sh "$forms" 20 "$work/app" > /dev/null
start=$(date +%s%N)
"$program" --data "$work/data" --yes generate "$work/app/Bench.vbp" --no-compile > /dev/null 2>&1
echo "generated $forms forms in $(( ($(date +%s%N) - start) / 1000000 )) ms"
node bench/editor-select.mjs "$PWD/$program" "$work/data" "$work/app/CHM/Bench.svp" "$rounds"
