#!/usr/bin/env bash
# Times `scrivant generate` on synthetic VB6 projects of 100 and 1,000 forms
# (20 controls each), without and with the help compiler, and the share of
# the screenshots in a 100-form run. Prints seconds and peak memory.
# Usage: bench/generate.sh [FORM_COUNTS...]   (default: 100 1000)
set -euo pipefail
cd "$(dirname "$0")/.."
program=$PWD/build/bin/scrivant
[ -x "$program" ] || { echo "bench: build the program first (scripts/setup)" >&2; exit 1; }
counts=("$@")
[ ${#counts[@]} -gt 0 ] || counts=(100 1000)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

run() { # label forms data extra-args...
  local label=$1 forms=$2 data=$3; shift 3
  rm -rf "$work/app"
  bench/make-vb6-project.sh "$forms" 20 "$work/app" >/dev/null
  local start end
  start=$(date +%s.%N)
  /usr/bin/time -f '%M' -o "$work/rss" "$program" --data "$data" generate "$work/app/Bench.vbp" "$@" \
    >"$work/out" 2>&1 || { echo "bench: generate failed, see below" >&2; tail -20 "$work/out" >&2; exit 1; }
  end=$(date +%s.%N)
  awk -v l="$label" -v f="$forms" -v s="$start" -v e="$end" -v m="$(tail -1 "$work/rss")" \
    'BEGIN { printf "%-34s %6d %10.2f %12d\n", l, f, e - s, m }'
  echo "$end - $start" | awk '{ print $1 - $3 }' > "$work/last"
}

printf '%-34s %6s %10s %12s\n' run forms seconds maxRSS-kB
for forms in "${counts[@]}"; do
  run "without compiler" "$forms" "$work/data1" --no-compile
  run "with compiler (chmcmd)" "$forms" "$work/data2"
done

# The screenshots' share: the same 100 forms with pictures switched off.
run "100 forms, pictures" 100 "$work/data3" --no-compile
with=$(cat "$work/last")
"$program" --data "$work/data4" settings --set AddImageForForm=false >/dev/null
run "100 forms, no pictures" 100 "$work/data4" --no-compile
without=$(cat "$work/last")
awk -v a="$with" -v b="$without" 'BEGIN { printf "share of screenshots in a 100-form run: %.0f%%\n", (a - b) / a * 100 }'
