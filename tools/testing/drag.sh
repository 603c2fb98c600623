#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# drag.sh FOLDER [WRAPPER]: drags colours with the mouse between NolvexSwatch from FOLDER and a program that does not use
# the library, in both directions, and gives the button data that is too short, too long, or of another format. WRAPPER
# runs Windows programs, on the display in use.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
folder=$1
shift
work=$(mktemp -d)
running=()

stop() {
  local process
  for process in "${running[@]}"; do
    kill "$process" 2>/dev/null || true
    wait "$process" 2>/dev/null || true
  done
  stop_display
  rm -rf "$work"
}
trap stop EXIT

complain() {
  echo "drag: $*"
  tail -v -n 20 "$work"/*
  exit 1
}

# start NAME COMMAND...: starts a program and writes its lines to the file of that name.
start() {
  local name=$1
  shift
  timeout 200 "$@" >"$work/$name" 2>"$work/$name-errors" </dev/null &
  running+=($!)
}

# until_line NAME LINE [COUNT]: waits until the program has written the line, a regular expression, that often.
until_line() {
  local _
  for _ in $(seq 150); do
    [ "$(grep -cE "^$2"$'\r?$' "$work/$1" || true)" -lt "${3:-1}" ] || return 0
    sleep 0.1
  done
  complain "$1 never writes: $2"
}

# point NAME FIELD: sets x and y to the middle of the field, counted from 0, in the last place that the program has
# written.
point() {
  local left top width height
  read -r _ left top width height < <(tr -d '\r' <"$work/$1" | grep '^area ' | tail -n 1)
  local fields=1
  [ "$1" = swatch ] || fields=5
  x=$((left + width / fields * $2 + width / fields / 2)) y=$((top + height / 2))
}

# drag NAME FIELD NAME FIELD: moves the mouse as a user does, who stops for a moment before the release.
drag() {
  local x y from_x from_y step
  point "$1" "$2"
  from_x=$x from_y=$y
  point "$3" "$4"
  xdotool mousemove "$from_x" "$from_y"
  sleep 0.1
  xdotool mousedown 1
  for step in $(seq 10); do
    xdotool mousemove $((from_x + (x - from_x) * step / 10)) $((from_y + (y - from_y) * step / 10))
    sleep 0.03
  done
  for step in 1 2 1 0; do
    xdotool mousemove $((x + step)) "$y"
    sleep 0.1
  done
  xdotool mouseup 1
  sleep 0.2
}

lines() {
  grep -cE '^(change|preview) ' "$work/swatch" || true
}

need_packages xdotool
# 2, -0.5, NaN with bits of its own, infinity
first=40000000BF0000007FC123457F800000
if [ $# -gt 0 ]; then
  start swatch "$@" "$folder/NolvexSwatch.exe" "$first"
  start peer "$@" "$folder/NolvexDragPeer.exe"
else
  need_packages python3-gi gir1.2-gtk-3.0
  start_display
  start swatch env G_DEBUG=fatal-criticals "$folder/NolvexSwatch" "$first"
  start peer /usr/bin/python3 -B tests/drag/drag_peer.py
fi
until_line swatch 'area .*'
until_line peer 'area .*'
sleep 1 # the window manager may still move the windows

drag swatch 0 peer 0
until_line peer 'got 16 00000040000000bf4523c17f0000807f'
[ "$(lines)" -eq 0 ] || complain "a drag from the button calls a callback of the button"

drag peer 1 swatch 0
until_line swatch 'preview 3E800000C0400000422800003F800000'
drag peer 2 swatch 0
drag peer 4 swatch 0
drag peer 3 swatch 0
until_line swatch 'preview 3F0000003FC00000BF80000000000000'
if ! diff <(tr -d '\r' <"$work/swatch" | grep -E '^(change|preview) ') - <<'END'; then
change 3E800000C0400000422800003F800000
preview 3E800000C0400000422800003F800000
change 3F0000003FC00000BF80000000000000
preview 3F0000003FC00000BF80000000000000
END
  complain "other callbacks than expected"
fi

drag swatch 0 peer 0
until_line peer 'got 16 0000003f0000c03f000080bf00000000'
