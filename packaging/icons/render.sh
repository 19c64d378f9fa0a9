#!/usr/bin/env bash
# Renders packaging/corvan.svg to the sizes in which desktops show it. Run after a change of the drawing; building needs only the pictures.
# Needs rsvg-convert (Debian: librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"

for size in 16 22 24 32 48 64 128 256; do
  rsvg-convert -w "$size" -h "$size" ../corvan.svg -o "corvan-$size.png"
done
