#!/usr/bin/env bash
# Renders packaging/corvan.svg to the sizes in which desktops show it. Run after a change of the drawing; building needs only the pictures.
# Needs rsvg-convert (Debian: librsvg2-bin), icotool (icoutils) and convert (imagemagick).
set -euo pipefail
cd "$(dirname "$0")"

for size in 16 22 24 32 48 64 128 256; do
  rsvg-convert -w "$size" -h "$size" ../corvan.svg -o "corvan-$size.png"
done
icotool -c -o corvan.ico corvan-16.png corvan-24.png corvan-32.png corvan-48.png corvan-64.png --raw=corvan-256.png
# The side of the installer's last page.
convert -size 164x314 gradient:'#f4f7fb'-'#cfdbea' \( -background none -density 300 ../corvan.svg -resize 96x96 \) \
  -gravity north -geometry +0+72 -composite -colors 250 -type Palette BMP3:../windows/side.bmp
