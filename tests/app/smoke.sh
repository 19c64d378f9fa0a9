#!/usr/bin/env bash
# Starts the real program under a virtual display, drives it with keyboard and mouse and keeps screenshots:
# tests/app/smoke.sh [FOLDER]. Needs xvfb, xdotool and imagemagick; not part of the quick tests.
set -euo pipefail
cd "$(dirname "$0")/../.."

shots=$(realpath -m "${1:-build/smoke}")
mkdir -p "$shots"
if [ -z "${CORVAN_SMOKE:-}" ]; then
  CORVAN_SMOKE=1 exec xvfb-run -a -s "-screen 0 1360x820x24" "$0" "$shots"
fi

export XDG_RUNTIME_DIR="$shots/runtime"
mkdir -p -m 700 "$XDG_RUNTIME_DIR"
XDG_CONFIG_HOME=$(mktemp -d)  # not the user's own settings
export XDG_CONFIG_HOME
build=$(realpath "${CORVAN_BUILD:-build/release}")
samples=$(realpath samples)
work=$(mktemp -d)
cp "$samples"/lagoon_*.bin "$work"
cd "$work"
"$build/bin/corvan" &
program=$!
trap 'kill $program 2>/dev/null || true; rm -rf "$work" "$XDG_CONFIG_HOME"' EXIT
window=$(xdotool search --sync --onlyvisible --name Ardevo | head -n 1)
xdotool windowmove --sync "$window" 0 0 windowfocus "$window"

shot() { sleep 0.4; import -window root "$shots/$1.png"; }
keys() { xdotool key --delay 40 "$@"; sleep 0.2; }
click() { xdotool mousemove "$1" "$2" click "${3:-1}"; sleep 0.2; }

shot 1_start
keys ctrl+o
shot 2_file_in
click 100 400
keys ctrl+a
keys Return
sleep 0.5
keys F5 F6
shot 3_read
xdotool mousemove 700 600 mousedown 1 mousemove 690 580 mousemove 640 440
shot 4_turning
xdotool mouseup 1
shot 5_turned
keys ctrl+1 F8
shot 6_panels
kill -0 $program
echo "Screenshots are in $shots."
