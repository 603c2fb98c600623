#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# hosts.sh BUILD-FOLDER [RUNNER]: runs the examples of hosts: a program with a main loop of its own, a process that loads
# a plug-in, and programs in C and Python that exchange messages and have no display.
set -euo pipefail
cd "$(dirname "$0")/../.."
build=$1
shift
runner=("$@")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
if [ ${#runner[@]} -gt 0 ]; then
  extension=.exe loop_host=win32-host library=$build/bin/NolvexLibWx.dll
else
  extension='' loop_host=gtk-host library=$build/lib/libNolvexLibWx.so
fi
plug_in=$(find "$build/lib" "$build/bin" -name 'libplug-in.*' ! -name '*.a' | head -n 1)

run() {
  local program=$1
  shift
  timeout 60 "${runner[@]}" "$build/bin/$program$extension" "$@"
}

# Windows always has a display; Wine without one refuses even the hidden windows that sockets need there.
without_display() {
  if [ ${#runner[@]} -gt 0 ]; then "$@"; else (unset DISPLAY WAYLAND_DISPLAY; "$@"); fi
}

# file_for PATH: prints the name by which the programs know a file.
file_for() {
  if [ ${#runner[@]} -gt 0 ]; then winepath -w "$1"; else echo "$1"; fi
}

# exchange SENDER...: starts the receiver, runs the sender with the port and a file, and compares what has arrived.
exchange() {
  local port receiver status=0
  rm -f "$folder/received"
  : >"$folder/lines"
  without_display run console-host receive "$(file_for "$folder/received")" >"$folder/lines" &
  receiver=$!
  for _ in $(seq 200); do
    port=$(sed -n 's/^port \([0-9]*\).*/\1/p' "$folder/lines")
    [ -n "$port" ] && break
    sleep 0.1
  done
  without_display "$@" "$port" "$(file_for "$PWD/README.md")" || status=$?
  wait "$receiver" || status=$?
  tr -d '\r' <"$folder/lines" >"$folder/text"
  grep -qxF 'text <root><DataType>0</DataType><Frame>12</Frame></root>' "$folder/text"
  grep -qxF 'memory twelve frames' "$folder/text"
  cmp "$folder/received" README.md
  return "$status"
}

run "$loop_host" 1500 | tr -d '\r' | grep -qx opened
run plug-in-host "$(file_for "$PWD/$plug_in")" 100
exchange run console-host send
if [ ${#runner[@]} -eq 0 ]; then
  exchange python3 examples/python/send_by_library.py "$library"
fi
# What cannot be done is told in a sentence.
[ "$(run console-host send 1 README.md 2>&1 | tr -d '\r')" = "There is no answer from 127.0.0.1, port 1." ]
