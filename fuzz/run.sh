#!/usr/bin/env bash
# Builds the fuzz targets and runs each for a number of seconds: fuzz/run.sh SECONDS [syscal|text|columns|fields|masks|csv|sixcolumns|nmea|sav|gpx...].
# What it learns stays below build/; a finding is written to the current folder and ends the script with its status.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:?usage: fuzz/run.sh SECONDS [TARGET...]}
shift
[ "$#" -gt 0 ] || set -- syscal text columns fields masks csv sixcolumns nmea sav gpx

packaging/install-missing.sh packaging/debian-build.txt packaging/debian-fuzz.txt
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
for target in "$@"; do
  corpus="build/fuzz/corpus/$target"
  mkdir -p "$corpus"
  length=1024
  case "$target" in syscal | text | columns | csv | sixcolumns | nmea | sav | gpx) length=8192 ;; esac
  echo "fuzz_$target: $seconds s"
  build/fuzz/bin/"fuzz_$target" -max_total_time="$seconds" -max_len="$length" -timeout=10 -print_final_stats=1 \
    "$corpus" "fuzz/seeds/$target" 2>&1 | grep -vE '^(INFO|#[0-9]+[[:space:]]+(NEW|REDUCE|RELOAD|pulse))' || exit 1
done
