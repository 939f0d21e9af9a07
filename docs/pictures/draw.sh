#!/usr/bin/env bash
# Draws docs/pictures anew: all windows as they are, and some at 200 % and on a dark desktop; and writes into
# docs/accessibility.md what a screen reader sees. The same code draws the
# same pixels twice on one machine. From the environment: PICTURES (the folder drawn into), and what the pictures show:
# PICTURES_HOME (made anew, holds the program's folder, whose neighbours are seen in a list), PICTURES_CLOCK,
# PICTURES_BUILT.
set -euo pipefail
cd "$(dirname "$0")/../.."
cmake --preset release >/dev/null
cmake --build --preset release --target make_pictures default_lexicon
to=$(realpath -m "${PICTURES:-docs/pictures}")
home=${PICTURES_HOME:-/var/tmp/quorvane_pictures}
mkdir -p "$to"
all=$(mktemp -d)
trap 'rm -rf "$all" "$home"' EXIT
export QT_QPA_PLATFORM=offscreen
draw() {
  build/release/bin/make_pictures "$all" "$PWD/build/release/bin/words.lex" "$home" \
    "${PICTURES_CLOCK:-2026-03-05T14:07:09}" "${PICTURES_BUILT:-05 Mar 2026}" "$@"
}
draw
if [ -z "${PICTURES:-}" ]; then
  sed -i -e "/^\`\`\`text/r $all/tree.txt" -e '/^```text/,/^```$/{/^```/!d}' docs/accessibility.md
fi
QT_SCALE_FACTOR=2 draw scale200_
draw dark_ dark
cp "$all"/[!sd]*.png "$all"/{start,search}.png \
   "$all"/scale200_{search,frmPrinterSetup,frmExport,frmImport,frmSearches,workbench_*}.png \
   "$all"/dark_{search,frmPrinterSetup,menu_menFile,frmExport,frmImport,frmSearches,workbench_*}.png "$to"
rm -f "$to"/menu_.png
