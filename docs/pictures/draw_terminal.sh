#!/usr/bin/env bash
# Draws docs/pictures/terminal.png, searches in a terminal, and live.png, the words while the pattern is typed. Needs
# Xvfb, xterm, fzf, ImageMagick and xdotool (Debian: xvfb xterm fzf imagemagick xdotool), and the release build.
set -euo pipefail
cd "$(dirname "$0")/../.."
bin=$PWD/build/release/bin
scratch=$(mktemp -d)
mkfifo "$scratch/display"
Xvfb -displayfd 3 -screen 0 760x560x24 3>"$scratch/display" >/dev/null 2>&1 &
server=$!
trap 'kill $server; rm -rf "$scratch"' EXIT
read -r display <"$scratch/display"
export DISPLAY=:$display PATH=$bin:$PATH HOME=$scratch PS1='$ '
window=(-geometry 80x19+0+0 -fa 'DejaVu Sans Mono' -fs 10 -bg '#1e1e1e' -fg '#d8d8d8' -b 8 +sb)

# shoot NAME KEYS COMMAND ...: the terminal with that command once the keys were typed, as NAME.png.
shoot() {
  local name=$1 keys=$2
  shift 2
  xterm "${window[@]}" -T quorvane-shot -e "$@" &
  local terminal=$!
  xdotool search --sync --name quorvane-shot windowfocus --sync
  xdotool search --sync --name quorvane-shot type --delay 60 "$keys"
  sleep 2
  import -window quorvane-shot "docs/pictures/$name.png"
  kill $terminal
  wait $terminal 2>/dev/null || true
}

shoot terminal "quorvane-cli find --explain 'str?ng'
quorvane-cli find --rack 'aeinrt?' --limit 4 '==c=='
quorvane-cli find --with abc --without d --length 7 --count '*'
quorvane-cli has zax zaxy
" bash --norc
shoot live 'qu*k' quorvane-live
