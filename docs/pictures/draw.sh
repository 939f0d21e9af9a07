#!/usr/bin/env bash
# Draws docs/pictures anew: all windows as they are, and some at 200 % and on a dark desktop.
set -euo pipefail
cd "$(dirname "$0")/../.."
cmake --preset release >/dev/null
cmake --build --preset release --target make_pictures default_lexicon
all=$(mktemp -d)
trap 'rm -rf "$all"' EXIT
lexicon=$PWD/build/release/bin/words.lex
export QT_QPA_PLATFORM=offscreen
build/release/bin/make_pictures "$all" "$lexicon"
QT_SCALE_FACTOR=2 build/release/bin/make_pictures "$all" "$lexicon" scale200_
build/release/bin/make_pictures "$all" "$lexicon" dark_ dark
cp "$all"/[!sd]*.png "$all"/{start,search}.png "$all"/scale200_{search,frmPrinterSetup}.png \
   "$all"/dark_{search,frmPrinterSetup,menu_menFile}.png docs/pictures/
rm -f docs/pictures/menu_.png
