#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# transfer.sh FOLDER [WRAPPER]: uses transfer-send and transfer-receive from FOLDER as two users would. Texts and files
# arrive whole or the status reports an error, files stay in the receiver's folder, strangers do not delay other
# senders, and mistakes give a clear line and a status. WRAPPER runs Windows programs.
set -euo pipefail
cd "$(dirname "$0")/../.."
(. tools/testing/common.sh && need_packages python3)
programs=$1
export LC_ALL=C.UTF-8 # In another locale, Wine does not find names beyond ASCII.
suffix=
[ -e "$programs/transfer-send" ] || suffix=.exe
send=(timeout 60 ${2:+"$2"} "$programs/transfer-send$suffix")
receive=(timeout 200 ${2:+"$2"} "$programs/transfer-receive$suffix")
folder=$(mktemp -d)
stored=$folder/stored
receiver=
failures=0

cleanup() {
  [ -z "$receiver" ] || kill "$receiver" 2>/dev/null || true
  rm -rf "$folder"
}
trap cleanup EXIT

complain() {
  echo "transfer: $*"
  failures=$((failures + 1))
}

# until_true COMMAND...: repeats the command until it succeeds, for ten seconds at most.
until_true() {
  local _
  for _ in $(seq 100); do
    ! "$@" 2>/dev/null || return 0
    sleep 0.1
  done
  return 1
}

read_port() {
  port=$(sed -n 's/^listening on .* port \([0-9]*\).*/\1/p' "$folder/log")
  [ -n "$port" ]
}

# start_receiver [ARGUMENT...]: starts a receiver with an empty folder. Sets receiver and port.
start_receiver() {
  rm -rf "$stored"
  mkdir "$stored"
  : >"$folder/log"
  "${receive[@]}" --folder "$stored" "$@" >"$folder/log" 2>"$folder/errors" &
  receiver=$!
  until_true read_port || { complain "the receiver does not listen"; exit 1; }
}

# signal_receiver SIGNAL: sends the signal to the program itself. `timeout` would pass the signal on twice, and the second
# one ends the program before it has tidied up.
signal_receiver() {
  kill -s "$1" "$(pgrep -P "$receiver")"
}

# start_awkward_receiver ARGUMENT...: awkward_receiver.py in place of the program.
start_awkward_receiver() {
  : >"$folder/log"
  timeout 60 python3 -B tools/testing/awkward_receiver.py "$@" >"$folder/log" 2>"$folder/errors" &
  receiver=$!
  until_true read_port || { complain "the awkward receiver does not listen"; exit 1; }
}

# end_receiver STATUS: waits for its end.
end_receiver() {
  local status=0
  wait "$receiver" || status=$?
  receiver=
  [ "$status" -eq "$1" ] || complain "the receiver ended with $status instead of $1: $(cat "$folder/log" "$folder/errors")"
}

# sends_later [ARGUMENT...]: starts a sender in the background as $sender. The sender must not inherit the strangers'
# connections.
sends_later() {
  (
    for descriptor in "${strangers[@]}"; do
      exec {descriptor}>&-
    done
    exec "${send[@]}" "$@" >"$folder/output" 2>&1 </dev/null
  ) &
  sender=$!
}

# expect_status STATUS PATTERN COMMAND...: checks the status of the command, and that its output matches the pattern.
expect_status() {
  local expected=$1 pattern=$2 status=0
  shift 2
  "$@" >"$folder/output" 2>&1 </dev/null || status=$?
  [ "$status" -eq "$expected" ] || complain "$* ended with status $status: $(cat "$folder/output")"
  grep -qe "$pattern" "$folder/output" || complain "$* did not say \"$pattern\" but: $(cat "$folder/output")"
}

sends() {
  "${send[@]}" "$@" >"$folder/output" 2>&1 </dev/null || complain "sending $* failed: $(cat "$folder/output")"
}

# arrived FILE [NAME]: checks that FILE was stored as received-NAME. NAME is by default the name of FILE.
arrived() {
  cmp "$1" "$stored/received-${2:-$(basename "$1")}" || complain "$1 is not what was stored"
}

received_lines() {
  grep -qxF "$1" <(tr -d '\r' <"$folder/log") || complain "the receiver did not print \"$1\": $(cat "$folder/log")"
}

nothing_is_stored() {
  [ -z "$(ls "$stored")" ]
}

part_is_stored() {
  [ -n "$(find "$stored" -name '*.part' -size +0)" ]
}

# connect: opens a connection as descriptor $stranger.
strangers=()
connect() {
  exec {stranger}<>"/dev/tcp/127.0.0.1/$port"
  strangers+=("$stranger")
}

# announce SIZE: prints the header that precedes a file of that size.
announce() {
  printf '<root><DataType>1</DataType><Name>half.bin</Name><FileSize>%s</FileSize><Compressed>0</Compressed></root>\0' "$1"
}

# hang_up: closes all connections of strangers.
hang_up() {
  for stranger in "${strangers[@]}"; do
    exec {stranger}>&-
  done
  strangers=()
}

head -c 300000 /dev/urandom >"$folder/noise.bin"
head -c 3000000 /dev/zero >"$folder/zeros.bin"
: >"$folder/nothing.bin"
printf 'small\n' >"$folder/small.txt"

texts_and_files_arrive() {
  # The name has almost as many bytes as a system allows, in characters of three bytes.
  local long_name
  long_name=$(printf '\344\270\200%.0s' $(seq 80))
  cp "$folder/noise.bin" "$folder/$long_name"
  start_receiver -n 2
  sends --text "a & b <c>" 127.0.0.1 "$port" \
    "$folder/noise.bin" "$folder/zeros.bin" "$folder/nothing.bin" "$folder/$long_name"
  sends --compress 127.0.0.1 "$port" "$folder/noise.bin" "$folder/zeros.bin"
  end_receiver 0
  received_lines "text a & b <c>"
  received_lines "received 7, refused 0"
  for name in noise zeros; do
    arrived "$folder/$name.bin"
    arrived "$folder/$name.bin" "$name-2.bin"
  done
  arrived "$folder/nothing.bin"
  arrived "$folder/noise.bin" "${long_name:0:50}"
  [ "$(find "$stored" -type f | wc -l)" -eq 6 ] || complain "there are other files than those sent"
}

names_and_texts_of_every_kind_arrive() {
  # The fiftieth unit of UTF-16, where the name is cut, is in the middle of a character.
  local wide_name broken_name text='ä 一 😀'
  wide_name=$(printf 'n%.0s' $(seq 45))😀$(printf 'm%.0s' $(seq 20)).bin
  cp "$folder/noise.bin" "$folder/$wide_name"
  start_receiver -n 2
  sends --text "$text" 127.0.0.1 "$port" "$folder/$wide_name"
  if [ -z "$suffix" ]; then
    # Only on this system are names bytes and arguments read in the encoding of the locale.
    broken_name=$(printf 'a\377b')
    cp "$folder/noise.bin" "$folder/$broken_name"
    LC_ALL=C sends --text "$text, once more" 127.0.0.1 "$port" "$folder/$broken_name" "$folder/$wide_name"
    arrived "$folder/noise.bin" "a�b"
    received_lines "text $text, once more"
  else
    sends 127.0.0.1 "$port" "$folder/small.txt"
  fi
  end_receiver 0
  received_lines "text $text"
  [ "$(find "$stored" -name 'received-nnn*.bin' | wc -l)" -ge 1 ] || complain "the long name lost its end: $(ls "$stored")"
  find "$stored" -name 'received-nnn*' -exec cmp "$folder/noise.bin" '{}' ';' >"$folder/output"
  [ ! -s "$folder/output" ] || complain "the file of the long name is not what was sent"
}

# Files that the system generates report a size that differs from the size of their content.
files_that_the_system_makes_up_arrive() {
  start_receiver -n 2
  sends 127.0.0.1 "$port" /proc/version
  sends --compress 127.0.0.1 "$port" /sys/devices/system/cpu/online
  end_receiver 0
  arrived /proc/version
  arrived /sys/devices/system/cpu/online
}

what_cannot_be_sent_keeps_nothing_else_back() {
  mkfifo "$folder/pipe"
  start_receiver -n 1
  expect_status 1 'pipe was not received' "${send[@]}" 127.0.0.1 "$port" \
    "$folder/pipe" "$folder" "$folder/missing" "$folder/small.txt"
  for name in stored missing; do
    [ "$name" = stored ] || grep -q "$name was not received" "$folder/output" || complain "nothing was said of $name"
  done
  end_receiver 0
  arrived "$folder/small.txt"
}

broken_off_files_are_not_kept() {
  start_receiver -n 2
  connect
  { announce 300000 && head -c 100000 "$folder/noise.bin"; } >&"$stranger"
  until_true part_is_stored || complain "nothing is stored while a file comes"
  [ ! -e "$stored/received-half.bin" ] || complain "half a file has its name"
  hang_up
  until_true nothing_is_stored || complain "half a file was kept: $(ls "$stored")"
  sends 127.0.0.1 "$port" "$folder/small.txt"
  end_receiver 1
  received_lines "received 1, refused 1"
}

files_that_become_shorter_are_broken_off() {
  truncate -s 60000000 "$folder/shrinking.bin"
  start_awkward_receiver shorten "$folder/shrinking.bin"
  expect_status 1 'shrinking.bin was not received' "${send[@]}" 127.0.0.1 "$port" \
    "$folder/shrinking.bin" "$folder/small.txt"
  ! grep -q 'small.txt' "$folder/output" || complain "the file behind a shorter one was not sent: $(cat "$folder/output")"
  end_receiver 0
  received_lines "the sender hung up"
  received_lines "received a whole file"
}

late_answers_are_not_taken_for_others() {
  start_awkward_receiver silent
  expect_status 1 'noise.bin was not received' "${send[@]}" --wait 2 127.0.0.1 "$port" \
    "$folder/noise.bin" "$folder/small.txt"
  ! grep -q 'small.txt' "$folder/output" || complain "the file behind the lost answer was not sent: $(cat "$folder/output")"
  end_receiver 0
  received_lines "the sender hung up"
  received_lines "received a whole file"
}

# Whatever begins a message is refused when the message does not come, and silence is not.
broken_messages_are_refused() {
  start_receiver -n 6
  connect
  connect
  printf '<root><Data' >&"$stranger"
  exec {stranger}>&-
  unset 'strangers[-1]'
  connect
  printf '<root><Data' >&"$stranger"
  timeout 20 cat <&"$stranger" >/dev/null || complain "a sender that stops in a header is not sent away"
  connect
  # A second is not too long for a header as a whole, but the end of this one is wrong.
  printf '<root>' >&"$stranger"
  sleep 0.5
  printf 'nonsense' >&"$stranger"
  sleep 0.5
  printf '\0' >&"$stranger"
  timeout 20 cat <&"$stranger" >/dev/null || complain "a malformed header is not refused"
  connect
  printf '<root>' >&"$stranger"
  trickle "$stranger" &
  timeout 20 cat <&"$stranger" >/dev/null || complain "a header that trickles is not refused"
  kill $! 2>/dev/null || true
  connect
  printf '<root><DataType>0</DataType><Name>never</Name><Offer>5</Offer></root>\0' >&"$stranger"
  hang_up
  end_receiver 1
  received_lines "received 0, refused 5"
}

# trickle DESCRIPTOR: keeps a header coming for half a minute.
trickle() {
  for _ in $(seq 60); do
    printf 'x' >&"$1" || return 0
    sleep 0.5
  done 2>/dev/null
}

strangers_hold_nobody_up() {
  start_receiver -n 9 --clients 4
  connect
  connect
  printf '<root><Data' >&"$stranger"
  connect
  { announce 300000 && head -c 1000 "$folder/noise.bin"; } >&"$stranger"
  sends 127.0.0.1 "$port" "$folder/noise.bin"
  arrived "$folder/noise.bin"
  hang_up
  # The receiver serves four clients, so that the next sender waits until the strangers have gone.
  for _ in $(seq 4); do
    connect
  done
  sends_later --wait 50 127.0.0.1 "$port" "$folder/zeros.bin"
  sleep 2
  [ ! -e "$stored/received-zeros.bin" ] || complain "more connections are served than --clients allows"
  hang_up
  wait "$sender" || complain "the sender that had to wait failed: $(cat "$folder/output")"
  end_receiver 1
  arrived "$folder/zeros.bin"
  # Half a header and half a file.
  received_lines "received 2, refused 2"
}

other_protocols_are_refused() {
  start_receiver -n 2
  connect
  printf 'GET / HTTP/1.0\r\n\r\n\0' >&"$stranger"
  # The receiver closes the connection.
  timeout 20 cat <&"$stranger" >/dev/null || complain "a stranger is not sent away"
  hang_up
  connect
  printf '<root><DataType>7</DataType></root>\0' >&"$stranger"
  timeout 20 cat <&"$stranger" >/dev/null || complain "a message of an unknown type is not refused"
  hang_up
  end_receiver 1
  received_lines "received 0, refused 2"
}

files_that_are_too_large_are_refused() {
  truncate -s 1073741825 "$folder/sparse.bin"
  start_receiver -n 2 --max-size 300000
  expect_status 1 'longer than --max-size allows' "${send[@]}" --compress 127.0.0.1 "$port" \
    "$folder/zeros.bin" "$folder/sparse.bin" "$folder/noise.bin"
  grep -q 'too long to be compressed' "$folder/output" || complain "nothing was said of the file that is not compressed"
  arrived "$folder/noise.bin"
  # This sender does not offer the file first.
  connect
  announce 300001 >&"$stranger"
  timeout 20 cat <&"$stranger" >/dev/null || complain "a file that is too large is received"
  hang_up
  end_receiver 1
  received_lines "received 1, refused 3"
  [ "$(find "$stored" -type f | wc -l)" -eq 1 ] || complain "what was refused is stored"
}

unknown_hosts_are_named() {
  start_receiver
  for host in 'no such host' 'a..b' '' ' ' "127.0.0.1:$port" 0.0.0.0; do
    expect_status 1 "The host \"$host\" is unknown" "${send[@]}" --wait 5 "$host" "$port" "$folder/small.txt"
  done
  nothing_is_stored || complain "a file for an unknown host arrived here"
  kill "$receiver"
  wait "$receiver" || true
  receiver=
}

# This test does not run under Wine, which has no signals for its programs.
signals_end_the_programs() {
  local signal status=0
  for signal in INT TERM; do
    start_receiver
    connect
    { announce 300000 && head -c 100000 "$folder/noise.bin"; } >&"$stranger"
    until_true part_is_stored || complain "nothing is stored while a file comes"
    signal_receiver "$signal"
    end_receiver $((128 + $(kill -l "$signal")))
    hang_up
    nothing_is_stored || complain "half a file was kept after SIG$signal"
  done
  start_receiver
  # The system accepts connections for a stopped receiver, but the receiver does not answer.
  kill -STOP "$receiver" "$(pgrep -P "$receiver")"
  sends_later --wait 50 127.0.0.1 "$port" "$folder/small.txt"
  sleep 1
  kill "$sender"
  wait "$sender" || status=$?
  [ "$status" -eq 143 ] || complain "the sender that was terminated ended with status $status"
  kill -CONT "$(pgrep -P "$receiver")" "$receiver"
  signal_receiver TERM
  end_receiver 143
}

are_served() {
  [ "$(find "/proc/$(pgrep -P "$receiver")/task" -mindepth 1 -maxdepth 1 | wc -l)" -gt "$1" ]
}

# Also when all of its connections have begun a message.
a_busy_receiver_ends_soon() {
  local start
  start_receiver --clients 300
  for _ in $(seq 300); do
    connect
    announce 300000 >&"$stranger"
  done
  until_true are_served 300 || complain "not all connections are served"
  start=$EPOCHSECONDS
  signal_receiver TERM
  end_receiver 143
  [ $((EPOCHSECONDS - start)) -lt 6 ] || complain "the receiver took $((EPOCHSECONDS - start)) s to end"
  hang_up
  nothing_is_stored || complain "half a file was kept"
}

has_gone() {
  ! kill -0 "$1"
}

# The receiver cannot end in good order, because its last line has no room in the pipe.
second_signals_end_at_once() {
  local pipe process status=0
  mkfifo "$folder/full"
  exec {pipe}<>"$folder/full"
  "$programs/transfer-receive" --folder "$stored" >&"$pipe" 2>"$folder/errors" {pipe}>&- &
  process=$!
  receiver=$process
  IFS= read -r -t 20 -u "$pipe" || complain "the receiver does not listen"
  head -c 65536 /dev/zero >&"$pipe"
  kill -s INT "$process"
  sleep 2
  kill "$process" 2>/dev/null || complain "the pipe did not hold the receiver up"
  if ! until_true has_gone "$process"; then
    complain "a second signal does not end the receiver"
    kill -s KILL "$process"
  fi
  wait "$process" || status=$?
  receiver=
  exec {pipe}>&-
  [ "$status" -eq 143 ] || complain "the receiver ended with $status instead of 143"
}

mistakes_are_explained() {
  expect_status 0 'Usage' "${send[@]}" --help
  expect_status 0 'Usage' "${receive[@]}" --help
  expect_status 2 'help' "${send[@]}"
  expect_status 2 'port' "${send[@]}" 127.0.0.1 70000
  expect_status 2 'help' "${send[@]}" --no-such-option 127.0.0.1 1
  expect_status 2 'wait' "${send[@]}" --wait 0 127.0.0.1 1
  expect_status 2 'port' "${receive[@]}" --port 70000
  expect_status 2 'clients' "${receive[@]}" --clients 0
  expect_status 2 'max-size' "${receive[@]}" --max-size 1MB
  expect_status 2 'address' "${receive[@]}" --address nobody.invalid
  expect_status 1 'folder' "${receive[@]}" --folder "$folder/missing"
  expect_status 2 'text' "${send[@]}" --text "$(printf 'a\001b')" 127.0.0.1 1
  # No program listens on the port any more.
  expect_status 1 'Nobody answers' "${send[@]}" --wait 2 127.0.0.1 "$port" "$folder/noise.bin"
  if [ -z "$suffix" ]; then
    expect_status 2 'text' "${send[@]}" --text "$(printf 'a\377b')" 127.0.0.1 1
  fi
}

texts_and_files_arrive
names_and_texts_of_every_kind_arrive
files_that_the_system_makes_up_arrive
what_cannot_be_sent_keeps_nothing_else_back
broken_off_files_are_not_kept
files_that_become_shorter_are_broken_off
late_answers_are_not_taken_for_others
broken_messages_are_refused
strangers_hold_nobody_up
other_protocols_are_refused
files_that_are_too_large_are_refused
unknown_hosts_are_named
mistakes_are_explained
if [ -z "$suffix" ]; then
  signals_end_the_programs
  a_busy_receiver_ends_soon
  second_signals_end_at_once
fi
[ "$failures" -eq 0 ]
