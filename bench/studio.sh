#!/usr/bin/env bash
# Times the start of `scrivant studio`: from launching the program to its
# address on stdout, to the first state answered by the API (the open
# application with its forms read), and to the page served. Then the wizard
# of a new help project: each page change (Next through every page and Back
# again, the new page with its preview made) as the page's request sees it.
# Prints the fastest, median and slowest of each in milliseconds.
# Usage: bench/studio.sh [SOURCE.vbp|.vbg|.svp] [ROUNDS]   (default: the OrderDesk example, 20 rounds)
set -euo pipefail
cd "$(dirname "$0")/.."
program=build/bin/scrivant
[ -x "$program" ] || { echo "bench: build the program first (scripts/setup)" >&2; exit 1; }
command -v curl >/dev/null || { echo "bench: curl is needed" >&2; exit 1; }
source_file=${1:-examples/OrderDesk/OrderDesk.vbp}
rounds=${2:-20}
work=$(mktemp -d)
pid=
cleanup() {
  [ -n "$pid" ] && kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
# The source is copied: a studio may write beside it.
cp -r "$(dirname "$source_file")" "$work/app"
source_copy="$work/app/$(basename "$source_file")"

now_ms() { echo $(( $(date +%s%N) / 1000000 )); }

: > "$work/address.ms"; : > "$work/state.ms"; : > "$work/page.ms"
for ((round = 0; round < rounds; round++)); do
  rm -rf "$work/data"
  out="$work/out.txt"
  : > "$out"
  start=$(now_ms)
  "$program" --data "$work/data" studio --no-browser "$source_copy" > "$out" 2>&1 &
  pid=$!
  url=
  while [ -z "$url" ]; do
    url=$(grep -o 'http://127\.0\.0\.1:[0-9]*/?token=[0-9a-f]*' "$out" || true)
    kill -0 "$pid" 2>/dev/null || { cat "$out" >&2; exit 1; }
  done
  address=$(now_ms)
  token=${url##*token=}
  base=${url%%/\?token=*}
  until curl -sf -o /dev/null -H "X-Scrivant-Token: $token" "$base/api/state"; do :; done
  state=$(now_ms)
  curl -sf -o /dev/null -H "X-Scrivant-Token: $token" "$base/"
  page=$(now_ms)
  echo $((address - start)) >> "$work/address.ms"
  echo $((state - start)) >> "$work/state.ms"
  echo $((page - start)) >> "$work/page.ms"
  kill "$pid"
  wait "$pid" 2>/dev/null || true
  pid=
done

printf '%-34s %8s %8s %8s\n' "studio start ($rounds rounds), ms" fastest median slowest
for measure in address state page; do
  sort -n "$work/$measure.ms" | awk -v name="$measure" '
    { v[NR] = $1 }
    END { printf "%-34s %8d %8d %8d\n", "to the " name, v[1], v[int((NR + 1) / 2)], v[NR] }'
done

# --- the wizard's page changes ---
rm -rf "$work/data"
out="$work/out.txt"
"$program" --data "$work/data" studio --no-browser "$source_copy" > "$out" 2>&1 &
pid=$!
url=
while [ -z "$url" ]; do
  url=$(grep -o 'http://127\.0\.0\.1:[0-9]*/?token=[0-9a-f]*' "$out" || true)
  kill -0 "$pid" 2>/dev/null || { cat "$out" >&2; exit 1; }
done
token=${url##*token=}
base=${url%%/\?token=*}
post() {
  curl -sf -o "$work/answer.json" -w '%{time_total}' -H "X-Scrivant-Token: $token" -H "Origin: $base" \
    -H 'Content-Type: application/json' -d "$2" "$base$1"
}
until curl -sf -o /dev/null -H "X-Scrivant-Token: $token" "$base/api/state"; do :; done
post /api/command '{"command":"NewProject"}' > /dev/null
until [[ "$(curl -sf -H "X-Scrivant-Token: $token" "$base/api/wizard")" == *'"open":true'* ]]; do :; done
: > "$work/next.ms"; : > "$work/back.ms"
for ((round = 0; round < rounds; round++)); do
  for direction in next back; do
    for ((step = 1; step < 15; step++)); do
      seconds=$(post /api/wizard "{\"action\":\"$direction\"}")
      page=$(grep -o '"name":"[A-Za-z]*","title"' "$work/answer.json" | head -1 | cut -d'"' -f4)
      ms=$(awk -v s="$seconds" 'BEGIN { printf "%d", s * 1000 + 0.5 }')
      # The first showing of the contents loads the tree from the application's files.
      if [ "$round" -eq 0 ] && [ "$page" = HelpProjectContents ] && [ "$direction" = next ]; then
        echo "$ms" > "$work/contents.ms"
      else
        echo "$ms" >> "$work/$direction.ms"
      fi
    done
  done
done
printf '%-34s %8s %8s %8s\n' "wizard page change ($rounds rounds), ms" fastest median slowest
for measure in next back; do
  sort -n "$work/$measure.ms" | awk -v name="$measure" '
    { v[NR] = $1 }
    END { printf "%-34s %8d %8d %8d\n", name, v[1], v[int((NR + 1) / 2)], v[NR] }'
done
printf '%-34s %8d\n' "first showing of the contents" "$(cat "$work/contents.ms")"
