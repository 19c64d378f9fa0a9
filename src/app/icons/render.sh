#!/usr/bin/env bash
# Renders the drawings of this folder to the pictures beside them, for light and for dark windows, at 24 pixels and at
# twice that for dense screens. Run after a change of a drawing; building needs only the pictures.
# Needs rsvg-convert (Debian: librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"

ink_dark=#e3e8ec     # on dark ground instead of #2f3b46
accent_dark=#63b8ff  # on dark ground instead of #0a6fc2

mkdir -p light dark
for drawing in *.svg; do
  name=${drawing%.svg}
  dark=$(sed "s/#2f3b46/$ink_dark/g; s/#0a6fc2/$accent_dark/g" "$drawing")
  rsvg-convert -w 24 -h 24 "$drawing" -o "light/$name.png"
  rsvg-convert -w 48 -h 48 "$drawing" -o "light/$name@2x.png"
  rsvg-convert -w 24 -h 24 <<<"$dark" -o "dark/$name.png"
  rsvg-convert -w 48 -h 48 <<<"$dark" -o "dark/$name@2x.png"
done
