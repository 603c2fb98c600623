#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# viewer.sh COMMAND...: starts the viewer as a user does. The viewer must show good pictures. For a bad picture it must
# print one clear line and end with status 1 if a screenshot is wanted, and otherwise tell the reason in its window.
set -euo pipefail
cd "$(dirname "$0")/../.."
(. tools/testing/common.sh && need_packages python3)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
# The settings of the user are neither asked nor changed.
export XDG_CONFIG_HOME=$folder/config
failures=0

complain() {
  echo "viewer: $*"
  failures=$((failures + 1))
}

# A folder stands for the pictures in it.
for picture in tests/data/images/pattern* tests/data/images; do
  rm -f "$folder/shot.png"
  if ! timeout 60 "$@" --screenshot "$folder/shot.png" "$picture" 2>"$folder/errors"; then
    complain "$picture was not shown: $(cat "$folder/errors")"
  elif [ ! -s "$folder/shot.png" ]; then
    complain "$picture left no screenshot"
  fi
done

mkdir "$folder/empty folder"
for picture in tests/data/images/{empty,truncated,huge-claim}.png tests/data/images/{truncated,random}.jpg \
  tests/data/images/{zero-size,huge-claim}.bmp tests/data/images/{truncated,negative,huge-claim}.pfm \
  tests/data/images/noimage.txt "$folder/empty folder" tests/data/images/missing.png; do
  status=0
  timeout 60 "$@" --screenshot "$folder/bad.png" "$picture" 2>"$folder/errors" || status=$?
  [ "$status" -eq 1 ] || complain "$picture ended with status $status"
  grep -q "$(basename "$picture")" "$folder/errors" || complain "$picture gave no clear message: $(cat "$folder/errors")"
  [ ! -e "$folder/bad.png" ] || complain "$picture was shown"
done

# The picture is waited for, even if it is large, and a bad one before it is passed over. The sizes are those of the
# tallest and of the smallest picture.
{ printf 'Pf\n6000 4000\n-1\n' && head -c 96000000 /dev/zero; } >"$folder/large.pfm"
{ printf 'P5\n1 30000\n255\n' && head -c 30000 /dev/zero; } >"$folder/tall.pgm"
{ printf 'P5\n30000 1\n255\n' && head -c 30000 /dev/zero; } >"$folder/wide.pgm"
printf 'P5\n1 1\n255\nx' >"$folder/dot.pgm"
for picture in large.pfm tall.pgm wide.pgm dot.pgm; do
  rm -f "$folder/shot.png"
  timeout 60 "$@" --screenshot "$folder/shot.png" tests/data/images/truncated.png "$folder/$picture" \
    2>"$folder/errors" || complain "$picture after a bad picture was not shown: $(cat "$folder/errors")"
  [ -s "$folder/shot.png" ] || complain "$picture left no screenshot"
done

# expect_running ARGUMENTS: a viewer that shows a window stays until the user closes it. It is ended by its signal.
expect_running() {
  local status=0
  timeout 15 "${viewer[@]}" "$@" >"$folder/output" 2>"$folder/errors" || status=$?
  [ "$status" -eq 124 ] || complain "$* ended with status $status: $(cat "$folder/errors")"
}
viewer=("$@")
expect_running tests/data/images/missing.png
expect_running --listen 0 tests/data/images/truncated.png
grep -q '^listening at port [1-9]' "$folder/output" || complain "the port was not printed: $(cat "$folder/output")"

# start_viewer NAME: starts a viewer that listens, and sets `port`.
listeners=()
start_viewer() {
  local _
  "${viewer[@]}" --listen 0 >"$folder/$1" 2>&1 </dev/null &
  listeners+=($!)
  for _ in $(seq 300); do
    port=$(sed -n 's/^listening at port \([0-9]*\).*/\1/p' "$folder/$1")
    [ -z "$port" ] || return 0
    sleep 0.1
  done
  complain "a viewer does not listen: $(cat "$folder/$1")"
}

# send PORT: sends a picture to the viewer, which must take it.
program=${!#}
send=("${@:1:$#-1}" "$(dirname "$program")/nolvex-send")
[ -e "$(dirname "$program")/nolvex-send" ] || send[-1]+=.exe
send() {
  timeout 60 "${send[@]}" --port "$1" tests/data/images/pattern.png >"$folder/output" 2>&1 ||
    complain "the viewer at port $1 did not take a picture: $(cat "$folder/output")"
}

# Two viewers at once, a port that is taken, and a sender that dies in the middle of a message.
start_viewer first
first=$port
start_viewer second
second=$port
[ "$first" != "$second" ] || complain "two viewers listen at port $first"
send "$first"
send "$second"
status=0
timeout 60 "$@" --listen "$first" >"$folder/output" 2>&1 </dev/null || status=$?
[ "$status" -eq 1 ] || complain "a viewer at a port that is taken ended with status $status"
grep -q "port $first" "$folder/output" || complain "a port that is taken gave no clear message: $(cat "$folder/output")"
for _ in 1 2 3; do
  python3 - "$first" <<'END'
import socket, sys

with socket.create_connection(("127.0.0.1", int(sys.argv[1])), 20) as viewer:
    viewer.sendall(b"<root><DataType>2</DataType><Version>1</Version><Command>open</Command><Name>dying</Name>"
                   b"<Width>1000</Width><Height>1000</Height><Format>UINT8_GREY</Format>"
                   b"<FileSize>1000000</FileSize><Compressed>0</Compressed></root>\0" + bytes(500000))
END
done
send "$first"
send "$second"
for listener in "${listeners[@]}"; do
  kill -0 "$listener" 2>/dev/null || complain "a viewer has ended by itself"
  kill "$listener" 2>/dev/null || true
  wait "$listener" 2>/dev/null || true
done

status=0
"$@" --no-such-option 2>/dev/null || status=$?
[ "$status" -eq 1 ] || complain "an unknown option ended with status $status"
status=0
timeout 60 "$@" --screenshot "$folder/no/such/folder.png" tests/data/images/pattern.png 2>"$folder/errors" || status=$?
[ "$status" -eq 1 ] || complain "a screenshot that cannot be written ended with status $status"
[ "$failures" -eq 0 ]
