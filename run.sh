#!/usr/bin/env bash
# Builds Corvan and processes the sample survey: every output goes to out/.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-missing.sh packaging/debian-build.txt
cmake --preset release -DCORVAN_TESTS=OFF -DCORVAN_BENCH=OFF -B build/run
cmake --build build/run

mkdir -p out
build/run/bin/corvan-cli process samples/lagoon_1.bin samples/lagoon_2.bin \
  --past-gaps --bad-gps interpolate --true-position --cable-offset 8 --echo-offset 1 \
  --out out/lagoon --format bin,txt,ecs,kml,csv
echo "The outputs are in $PWD/out."
