#!/usr/bin/env bash
# Times `scrivant describe` on VB6 projects and prints forms per second and peak
# memory. Usage: bench/describe.sh [PROJECT.vbp|GROUP.vbg ...]
# Without arguments it describes the bundled examples 20 times each.
set -euo pipefail
cd "$(dirname "$0")/.."
program=build/bin/scrivant
[ -x "$program" ] || { echo "bench: build the program first (scripts/setup)" >&2; exit 1; }
rounds=1
if [ $# -eq 0 ]; then
  set -- examples/OrderDesk/OrderDesk.vbp examples/Inventory/Inventory.vbg
  rounds=20
fi
data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT
printf '%-50s %8s %10s %10s %10s\n' source forms seconds forms/s maxRSS-kB
for source in "$@"; do
  forms=$("$program" --data "$data" describe "$source" 2>/dev/null | grep -c '^</Form>' || true)
  start=$(date +%s.%N)
  peak=0
  for ((i = 0; i < rounds; i++)); do
    /usr/bin/time -f '%M' -o "$data/rss" "$program" --data "$data" describe "$source" >/dev/null 2>&1 || true
    rss=$(tail -1 "$data/rss")
    [ "$rss" -gt "$peak" ] && peak=$rss
  done
  end=$(date +%s.%N)
  total=$((forms * rounds))
  awk -v name="$(basename "$source")" -v total="$total" -v start="$start" -v end="$end" -v peak="$peak" \
    'BEGIN { s = end - start; printf "%-50s %8d %10.3f %10.1f %10d\n", name, total, s, total / s, peak }'
done
