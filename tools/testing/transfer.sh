#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# transfer.sh FOLDER [WRAPPER]: nolvex-send and nolvex-receive of that folder, as two users would use them: texts and
# files arrive, names stay in their folder, mistakes give a clear line and their status.
set -euo pipefail
cd "$(dirname "$0")/../.."
programs=$1
export LC_ALL=C.UTF-8 # or Wine knows no names beyond ASCII
wrapper=${2:-}
suffix=
[ -e "$programs/nolvex-send" ] || suffix=.exe
folder=$(mktemp -d)
receiver=
cleanup() {
  [ -z "$receiver" ] || kill "$receiver" 2>/dev/null || true
  rm -rf "$folder"
}
trap cleanup EXIT
failures=0

complain() {
  echo "transfer: $*"
  failures=$((failures + 1))
}

send() { timeout 60 ${wrapper:+"$wrapper"} "$programs/nolvex-send$suffix" "$@"; }
receive() { timeout 120 ${wrapper:+"$wrapper"} "$programs/nolvex-receive$suffix" "$@"; }

expect_status() {
  local expected=$1 status=0
  shift
  "$@" >"$folder/output" 2>&1 || status=$?
  [ "$status" -eq "$expected" ] || complain "$* ended with status $status"
  [ -s "$folder/output" ] || complain "$* said nothing"
}

head -c 300000 /dev/urandom >"$folder/noise.bin"
head -c 3000000 /dev/zero >"$folder/zeros.bin"
: >"$folder/nothing.bin"
# A name of as many bytes as a system takes, and of characters that are longer when written.
long_name=$(printf '\344\270\200%.0s' $(seq 80))
cp "$folder/noise.bin" "$folder/$long_name"
mkdir "$folder/stored"

receive -f "$folder/stored" -n 2 >"$folder/log" &
receiver=$!
for _ in $(seq 100); do
  port=$(sed -n 's/^listening on .* port \([0-9]*\).*/\1/p' "$folder/log")
  [ -z "$port" ] || break
  sleep 0.2
done
if [ -z "$port" ]; then
  complain "the receiver does not listen"
  exit 1
fi

send --text "a & b <c>" 127.0.0.1 "$port" "$folder/noise.bin" "$folder/zeros.bin" "$folder/nothing.bin" "$folder/$long_name" ||
  complain "sending failed"
send --compress 127.0.0.1 "$port" "$folder/noise.bin" "$folder/zeros.bin" || complain "sending compressed failed"
wait "$receiver" || complain "the receiver failed"
receiver=

grep -q '^text a & b <c>' "$folder/log" || complain "the text did not arrive: $(cat "$folder/log")"
for name in noise zeros; do
  for copy in "received-$name.bin" "received-$name-2.bin"; do
    cmp -s "$folder/$name.bin" "$folder/stored/$copy" || complain "$copy is not what was sent"
  done
done
[ -e "$folder/stored/received-nothing.bin" ] || complain "the empty file did not arrive"
[ "$(find "$folder/stored" -type f | wc -l)" -eq 6 ] || complain "there are other files than those sent"

expect_status 0 send --help
expect_status 0 receive --help
expect_status 2 send
expect_status 2 send 127.0.0.1 70000
expect_status 2 receive --port 70000
expect_status 2 receive --address nobody.invalid
expect_status 1 receive --folder "$folder/missing"
# The receiver of before has gone.
expect_status 1 send --wait 2 127.0.0.1 "$port" "$folder/noise.bin"
[ "$failures" -eq 0 ]
