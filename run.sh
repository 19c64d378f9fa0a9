#!/usr/bin/env bash
# Builds Corvan and processes the sample survey: every output and three pictures go to out/.
# Where there is a display, the window opens with the survey.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-missing.sh packaging/debian-build.txt
cmake --preset release -DCORVAN_TESTS=OFF -DCORVAN_BENCH=OFF -B build/run
cmake --build build/run

mkdir -p out
survey=(samples/lagoon_1.bin samples/lagoon_2.bin --past-gaps --bad-gps interpolate --out out/lagoon)
build/run/bin/corvan-cli process "${survey[@]}" --true-position --cable-offset 8 --echo-offset 1 \
  --format bin,txt,ecs,kml,csv --picture out/lagoon_map.png --layers electrodes,scale,north,names,grid \
  --section-picture out/lagoon_section.png --curves current,depth
build/run/bin/corvan-cli process "${survey[@]}" --format csv \
  --picture out/lagoon_oblique.png --theta 135 --phi -30 --zoom 0.95 --exaggeration 3 \
  --layers electrodes,scale,north,names,axis | grep _oblique
echo "The outputs are in $PWD/out."

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "Opening the window with the sample survey."
  build/run/bin/corvan samples/lagoon_1.bin samples/lagoon_2.bin
fi
