#!/usr/bin/env bash
# Times `scrivant export-word` on the help of a synthetic VB6 project: FORMS
# forms of 20 controls (one topic with pictures each), with pictures stored and
# linked, and the PDF that LibreOffice makes of it when soffice is installed.
# Prints seconds, peak memory and the document's size.
# Usage: bench/ExportWordBench.sh [FORMS]   (default: 300)
set -euo pipefail
cd "$(dirname "$0")/.."
program=$PWD/build/bin/scrivant
[ -x "$program" ] || { echo "bench: build the program first (scrivant_cli)" >&2; exit 1; }
forms=${1:-300}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

bench/make-vb6-project.sh "$forms" 20 "$work/app" >/dev/null
"$program" --data "$work/data" generate "$work/app/Bench.vbp" --no-compile --out "$work/help" >"$work/log" 2>&1 \
  || { echo "bench: generate failed" >&2; tail -20 "$work/log" >&2; exit 1; }
topics=$(ls "$work/help"/*.htm | wc -l)
pictures=$(ls "$work/help/images" | wc -l)
echo "help of $forms forms: $topics pages, $pictures pictures"

run() { # label extra-args...
  local label=$1; shift
  local start end
  rm -f "$work/help/Bench.docx" "$work/help/Bench.pdf"
  start=$(date +%s.%N)
  /usr/bin/time -f '%M' -o "$work/rss" "$program" --data "$work/data" --yes export-word "$work/help/Bench.svp" \
    --out "$work/help/Bench.docx" "$@" >"$work/out" 2>&1 \
    || { echo "bench: export-word failed" >&2; tail -20 "$work/out" >&2; exit 1; }
  end=$(date +%s.%N)
  awk -v l="$label" -v s="$start" -v e="$end" -v m="$(tail -1 "$work/rss")" -v b="$(stat -c %s "$work/help/Bench.docx")" \
    'BEGIN { printf "%-30s %8.2f %12d %12d\n", l, e - s, m, b }'
}

printf '%-30s %8s %12s %12s\n' run seconds maxRSS-kB docx-bytes
run "pictures stored"
run "pictures linked" --link-pictures
if command -v soffice >/dev/null 2>&1; then
  run "pictures stored, with PDF" --pdf
  echo "PDF: $(pdfinfo "$work/help/Bench.pdf" 2>/dev/null | awk '/^Pages:/ { print $2 }') pages"
fi
