#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# pictures.sh FOLDER [WRAPPER]: sends pictures over the wire to a viewer without a window (NolvexPictureReceiver), by the
# Python module of the examples and by nolvex-send, both of which need no display. WRAPPER runs Windows programs.
set -euo pipefail
cd "$(dirname "$0")/../.."
(. tools/testing/common.sh && need_packages python3 python3-numpy)
programs=$(realpath "$1")
wrapper=${2:+$(realpath "$2")}
export LC_ALL=C.UTF-8 # In another locale, Wine does not find names beyond ASCII.
suffix=
[ -e "$programs/nolvex-send" ] || suffix=.exe
send=(timeout 60 ${wrapper:+"$wrapper"} "$programs/nolvex-send$suffix")
receive=(timeout 200 ${wrapper:+"$wrapper"} "$programs/NolvexPictureReceiver$suffix")
if [ -z "$suffix" ]; then
  unset DISPLAY WAYLAND_DISPLAY
fi
folder=$(mktemp -d)
receiver=
failures=0

cleanup() {
  [ -z "$receiver" ] || kill "$receiver" 2>/dev/null || true
  rm -rf "$folder"
}
trap cleanup EXIT

complain() {
  echo "pictures: $*"
  failures=$((failures + 1))
}

python_sends() {
  # Debian's Python has the module of Debian's package.
  NOLVEX_PICTURE_RECEIVER=$(printf '%s\n' "${receive[@]}" | head -c -1) \
    /usr/bin/python3 -B -m unittest discover -s examples/python -t examples/python >"$folder/output" 2>&1 ||
    complain "the Python module: $(cat "$folder/output")"
}

read_port() {
  port=$(sed -n 's/^port \([0-9]*\).*/\1/p' "$folder/log")
  [ -n "$port" ]
}

start_receiver() {
  local _
  mkdir -p "$folder/received"
  : >"$folder/log"
  (cd "$folder/received" && exec "${receive[@]}" .) >"$folder/log" 2>"$folder/errors" </dev/null &
  receiver=$!
  for _ in $(seq 200); do
    ! read_port || return 0
    sleep 0.1
  done
  complain "the receiver does not listen: $(cat "$folder/errors")"
  exit 1
}

# expect_status STATUS TEXT COMMAND...: the command ends so, and prints the text.
expect_status() {
  local expected=$1 text=$2 status=0
  shift 2
  "$@" >"$folder/output" 2>&1 </dev/null || status=$?
  [ "$status" -eq "$expected" ] || complain "status $status instead of $expected of ${*: -2}: $(cat "$folder/output")"
  [ -z "$text" ] || grep -q -e "$text" "$folder/output" || complain "no \"$text\" in what ${*: -2} prints: $(cat "$folder/output")"
}

# arrived NAME: waits until the picture is complete.
arrived() {
  local _
  for _ in $(seq 100); do
    ! grep -q "^received .* complete $1" "$folder/log" || return 0
    sleep 0.1
  done
  complain "$1 did not arrive: $(cat "$folder/log")"
}

files_of_every_kind_arrive() {
  local picture
  expect_status 0 '' "${send[@]}" --port "$port" tests/data/images/pattern*
  for picture in tests/data/images/pattern*; do
    arrived "$(basename "$picture")"
  done
}

names_arrive() {
  cp tests/data/images/pattern.png "$folder/ä 一 😀.png"
  expect_status 0 '' "${send[@]}" --port "$port" "$folder/ä 一 😀.png"
  arrived 'ä 一 😀.png'
  expect_status 0 '' "${send[@]}" --port="$port" --host localhost --name 'another name' tests/data/images/pattern.png
  arrived 'another name'
  if [ -z "$suffix" ]; then
    # Only on this system are names bytes.
    cp tests/data/images/pattern.png "$folder/$(printf 'a\377b.png')"
    expect_status 0 '' "${send[@]}" --port "$port" "$folder/$(printf 'a\377b.png')"
    arrived 'a�b.png'
  fi
}

large_pictures_arrive() {
  # 3,000 x 2,000 pixels of grey floats
  { printf 'Pf\n3000 2000\n-1\n' && head -c 24000000 /dev/urandom; } >"$folder/large.pfm"
  expect_status 0 '' "${send[@]}" --port "$port" "$folder/large.pfm"
  arrived large.pfm
  local file
  file=$(sed -n 's/^received \([^ ]*\) .* complete large.pfm.*/\1/p' "$folder/log" | tail -n 1)
  # The rows of the file begin with the lowest.
  tail -c 24000000 "$folder/large.pfm" | /usr/bin/python3 -c '
import numpy, sys
sys.stdout.buffer.write(numpy.frombuffer(sys.stdin.buffer.read(), "<u4").reshape(2000, 3000)[::-1].tobytes())' |
    cmp - "$folder/received/$file" || complain "the pixels of the large picture are others"
}

what_cannot_be_read_keeps_nothing_else_back() {
  expect_status 1 'truncated.png' "${send[@]}" --port "$port" tests/data/images/truncated.png "$folder" missing.png \
    tests/data/images/pattern-alpha.png
  grep -q missing.png "$folder/output" || complain "nothing was said of missing.png"
}

mistakes_are_explained() {
  expect_status 0 'Usage' "${send[@]}" --help
  expect_status 0 'nolvex-send [0-9]' "${send[@]}" --version
  expect_status 2 'file is needed' "${send[@]}" --port "$port"
  expect_status 2 'port' "${send[@]}" --port 70000 x.png
  expect_status 2 'port' "${send[@]}" --port 1x x.png
  expect_status 2 'help' "${send[@]}" --no-such-option x.png
  expect_status 2 'name' "${send[@]}" --name a x.png y.png
  expect_status 2 'name' "${send[@]}" --name '' x.png
  expect_status 1 'unknown' "${send[@]}" --host 'no such host' x.png
  expect_status 1 'Name must have' "${send[@]}" --port "$port" --name "$(printf 'a\tb')" tests/data/images/pattern.png
}

# A program that is killed while it saves leaves the old file whole, or the new one.
killed_while_saving() {
  local save=(${wrapper:+"$wrapper"} "$programs/NolvexEndlessSaver$suffix") saver delay cut=0 whole=0 process
  timeout 60 "${save[@]}" "$folder/complete.png" 1 >"$folder/output" 2>&1 || complain "saving fails: $(cat "$folder/output")"
  for delay in 0.01 0.02 0.03 0.05 0.07 0.1 0.15 0.2; do
    cp tests/data/images/pattern.png "$folder/kept.png"
    : >"$folder/output"
    "${save[@]}" "$folder/kept.png" 1000 >"$folder/output" 2>&1 </dev/null &
    saver=$!
    until grep -q saving "$folder/output" || ! kill -0 "$saver" 2>/dev/null; do sleep 0.01; done
    sleep "$delay"
    # Under Wine the program is a child of the script that runs it. Its arguments name the folder of this run.
    for process in $(grep -l -a "$folder/kept.png" /proc/[0-9]*/cmdline 2>/dev/null | cut -d / -f 3); do
      kill -9 "$process" 2>/dev/null || true
    done
    wait "$saver" 2>/dev/null || true
    if cmp -s "$folder/kept.png" tests/data/images/pattern.png; then
      cut=$((cut + 1))
    elif cmp -s "$folder/kept.png" "$folder/complete.png"; then
      whole=$((whole + 1))
    else
      complain "a killed program left $(stat -c %s "$folder/kept.png" 2>/dev/null || echo no) bytes of a picture"
    fi
  done
  [ "$cut" -gt 0 ] || complain "no program was killed while it saved for the first time"
}

killed_while_saving
python_sends
start_receiver
files_of_every_kind_arrive
names_arrive
large_pictures_arrive
what_cannot_be_read_keeps_nothing_else_back
mistakes_are_explained
kill "$receiver"
wait "$receiver" 2>/dev/null || true
receiver=
# Nothing listens on the port any more.
expect_status 1 'no viewer' "${send[@]}" --port "$port" tests/data/images/pattern.png
[ "$failures" -eq 0 ]
