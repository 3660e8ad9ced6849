#!/usr/bin/env bash
# Times a generation of a synthetic application that weighs like a real one
# (every form with frames, a three-page tab control, a toolbar and menus), once
# with JPEG and once with PNG pictures: the generation without the compiler,
# the help compiler alone on the same pages, their ratio, the size of the
# pictures and of the .chm, and `recompile --web-only`. Prints one row a format.
# Usage: bench/pictures.sh [FORMS]   (default: 1000)
set -euo pipefail
cd "$(dirname "$0")/.."
program=$PWD/build/bin/scrivant
[ -x "$program" ] || { echo "bench: build the program first (scripts/setup)" >&2; exit 1; }
command -v chmcmd >/dev/null || { echo "bench: chmcmd (fp-utils) is needed" >&2; exit 1; }
forms=${1:-1000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
RICH=1 bench/make-vb6-project.sh "$forms" 12 "$work/template" >/dev/null

seconds() { # command... : runs it, prints elapsed seconds and peak kB
  /usr/bin/time -f '%e %M' -o "$work/time" "$@" >"$work/out" 2>&1 \
    || { echo "bench: $* failed, see below" >&2; tail -20 "$work/out" >&2; exit 1; }
  cat "$work/time"
}

printf '%-6s %6s %9s %9s %10s %7s %9s %9s %9s\n' format forms generate peak-MB compiler ratio pictures chm web-only
for format in jpg png; do
  app="$work/app-$format"
  cp -r "$work/template" "$app"
  read -r generate peak < <(seconds "$program" --data "$work/data-$format" generate "$app/Bench.vbp" \
    --images "$format" --no-compile)
  chm="$app/CHM"
  read -r compile _ < <(cd "$chm" && seconds chmcmd Bench.hhp)
  read -r webOnly _ < <(seconds "$program" --data "$work/data-$format" recompile "$chm/Bench.svp" --web-only)
  pictures=$(du -sm "$chm/images" | cut -f1)
  chmSize=$(du -sm "$chm/Bench.chm" | cut -f1)
  awk -v f="$format" -v n="$forms" -v g="$generate" -v m="$peak" -v c="$compile" -v p="$pictures" \
      -v s="$chmSize" -v w="$webOnly" \
    'BEGIN { printf "%-6s %6d %8.2fs %9.0f %9.2fs %7.2f %8dM %8dM %8.2fs\n", f, n, g, m / 1024, c, c / g, p, s, w }'
done
