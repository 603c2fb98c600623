#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# viewer.sh COMMAND...: starts the viewer as a user does. The viewer must show good pictures. For a bad picture it must
# print one clear line and end with status 1 if a screenshot is wanted, and otherwise tell the reason in its window.
set -euo pipefail
cd "$(dirname "$0")/../.."
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

status=0
"$@" --no-such-option 2>/dev/null || status=$?
[ "$status" -eq 1 ] || complain "an unknown option ended with status $status"
status=0
timeout 60 "$@" --screenshot "$folder/no/such/folder.png" tests/data/images/pattern.png 2>"$folder/errors" || status=$?
[ "$status" -eq 1 ] || complain "a screenshot that cannot be written ended with status $status"
[ "$failures" -eq 0 ]
