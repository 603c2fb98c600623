#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# viewer.sh COMMAND...: starts the viewer as a user does. The viewer must show good pictures, and for a bad picture
# print one clear line and end with status 1.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
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

status=0
"$@" --no-such-option 2>/dev/null || status=$?
[ "$status" -eq 1 ] || complain "an unknown option ended with status $status"
status=0
timeout 60 "$@" --screenshot "$folder/no/such/folder.png" tests/data/images/pattern.png 2>"$folder/errors" || status=$?
[ "$status" -eq 1 ] || complain "a screenshot that cannot be written ended with status $status"
[ "$failures" -eq 0 ]
