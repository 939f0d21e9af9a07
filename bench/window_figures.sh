#!/usr/bin/env bash
# The window's figures under Xvfb: key press to painted status, a search of 2,000,000 words to the painted list, each key
# of ten searches with results while typing and of the same narrowing that list, the searches that are kept, and the
# start over the default lexicon beside that of an empty window (medians of 9 whole processes).
set -euo pipefail
cd "$(dirname "$0")/.."
command -v Xvfb >/dev/null || { echo "window_figures: Xvfb is missing (Debian: xvfb)" >&2; exit 2; }
bin=build/release/bin
scratch=$(mktemp -d)
mkfifo "$scratch/display"
Xvfb -displayfd 3 -screen 0 1400x1000x24 3>"$scratch/display" >/dev/null 2>&1 &
server=$!
read -r display <"$scratch/display"
trap 'kill $server; rm -rf "$scratch"' EXIT
export DISPLAY=:$display QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$scratch
chmod 700 "$scratch"

$bin/make_bench_lexicon "$scratch/bench.lex"
$bin/window_figures "$scratch/bench.lex" keys
$bin/window_figures "$scratch/bench.lex" search
$bin/window_figures "$scratch/bench.lex" live
$bin/window_figures "$scratch/bench.lex" within
$bin/window_figures "$scratch/bench.lex" list
$bin/window_figures "$scratch/bench.lex" history

median_start() {
  for _ in 1 2 3 4 5 6 7 8 9; do
    local from=$(date +%s%N)
    $bin/window_figures $bin/words.lex "$1"
    echo $((($(date +%s%N) - from) / 10000))
  done | sort -n | sed -n 5p
}
empty=$(median_start empty)
full=$(median_start start)
awk -v empty="$empty" -v full="$full" 'BEGIN {
  printf "start: %.1f ms, an empty window %.1f ms, difference %.1f ms\n", full / 100, empty / 100, (full - empty) / 100 }'
