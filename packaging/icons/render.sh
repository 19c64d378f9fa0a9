#!/usr/bin/env bash
# Renders packaging/corvan.svg to the sizes in which desktops show it. Run after a change of the drawing; building needs only the pictures.
# Needs rsvg-convert (Debian: librsvg2-bin) and icotool (icoutils).
set -euo pipefail
cd "$(dirname "$0")"

for size in 16 22 24 32 48 64 128 256; do
  rsvg-convert -w "$size" -h "$size" ../corvan.svg -o "corvan-$size.png"
done
icotool -c -o corvan.ico corvan-16.png corvan-24.png corvan-32.png corvan-48.png corvan-64.png --raw=corvan-256.png
