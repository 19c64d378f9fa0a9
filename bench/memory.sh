#!/usr/bin/env bash
# Peak memory of corvan-cli on large files: bench/memory.sh [BUILD_FOLDER]. Exit status 1 when a promise is missed.
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(realpath "${1:-build/release}")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$build/bin/corvan-bench" --make "$folder/firings280.bin" 280
"$build/bin/corvan-bench" --make "$folder/firings304.bin" 304

# Runs a command and prints the largest resident set that it reached, in kilobytes.
peak() {
  "$@" >/dev/null 2>&1 &
  local pid=$! most=0 now
  while now=$(awk '/^VmHWM/ { print $2 }' "/proc/$pid/status" 2>/dev/null) && [ -n "$now" ]; do
    most=$now
    sleep 0.01
  done
  wait "$pid" || true
  echo "$most"
}

info=$(peak "$build/bin/corvan-cli" info "$folder/firings280.bin")
process=$(peak "$build/bin/corvan-cli" process "$folder/firings304.bin" --out "$folder/section" --format bin,txt,ecs,kml,csv)
plain=$(peak "$build/bin/corvan-cli" process "$folder/firings280.bin" --out "$folder/section")
picture=$(peak "$build/bin/corvan-cli" process "$folder/firings280.bin" --out "$folder/section" \
  --picture "$folder/view.png" --size 1600x1000 --theta 125 --phi 15 --layers electrodes,scale,north,depth)
awk -v info="$info" -v process="$process" -v picture="$((picture - plain))" 'BEGIN {
  printf "info: %.0f MB (under 64, whatever the file)\n", info / 1024
  printf "process of 100,000 firings to all formats: %.0f MB (under 1500)\n", process / 1024
  printf "picture of 1,000,000 cells: %.0f MB beside the survey (at most 160)\n", picture / 1024
  exit !(info < 64 * 1024 && process < 1500 * 1024 && picture <= 160 * 1024)
}'
