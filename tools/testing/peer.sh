#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# peer.sh COMMAND...: exchanges every kind of message, in both directions and over ports of this computer, between the
# library, which COMMAND (NolvexLibraryPeer) runs, and a peer that was written from the description of the protocol
# alone. Each received message is compared byte by byte with the intended message.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
need_packages python3
passed=0 failed=0 skipped=0

peer=$PWD/tests/peer
# exchange finds the commands of the two ends by the names of these variables.
# shellcheck disable=SC2034
python=(timeout 120 python3 -B "$peer/nolvex_peer.py")
library=(timeout 120)
for word in "$@"; do
  # The exchanges run in another folder, so that paths of existing files must be absolute. The names of the exchanged
  # files have no folder, because programs of every system understand such names.
  [ ! -e "$word" ] || word=$(realpath "$word")
  library+=("$word")
done
folder=$(mktemp -d)
waiting=
end_all() {
  [ -z "$waiting" ] || kill "$waiting" 2>/dev/null || true
  rm -rf "$folder"
}
trap end_all EXIT
cd "$folder"

# wait_for_port: waits until the listening end prints its port.
wait_for_port() {
  port=
  while [ -z "$port" ] && kill -0 "$waiting" 2>/dev/null; do
    sleep 0.05
    port=$(sed -n 's/^port \([0-9]\{1,\}\)\r*$/\1/p' waiting.out)
  done
}

# exchange END [WORD...] -- [WORD...]: END gets the first words and waits for a connection. The other end gets the
# second words and connects. The first word of each is the command. The output is left in waiting.out and other.out,
# without the parts that differ from run to run, and the statuses in waiting_status and other_status.
exchange() {
  local -n waiting_end=$1
  local words=() other=library
  [ "$1" = python ] || other=python
  local -n other_end=$other
  while shift && [ "$1" != -- ]; do
    words+=("$1")
  done
  shift
  rm -rf received
  mkdir received
  : >waiting.out
  waiting_status=0 other_status=0
  "${waiting_end[@]}" "${words[0]}" --listen 127.0.0.1 0 "${words[@]:1}" >waiting.out 2>waiting.err </dev/null &
  waiting=$!
  wait_for_port
  "${other_end[@]}" "$1" 127.0.0.1 "${port:-0}" "${@:2}" >other.out 2>other.err </dev/null || other_status=$?
  wait "$waiting" || waiting_status=$?
  waiting=
  sed -i -e 's/\r$//' -e '/^port [0-9]*$/d' \
    -e 's/<CompressedSize>[0-9]\{1,\}</<CompressedSize>some</' waiting.out other.out
}

# arrived NAME PRINTED: checks that the receiver printed and wrote the expected content and that both ends succeeded.
arrived() {
  if [ "$waiting_status" -ne 0 ] || [ "$other_status" -ne 0 ] || ! cmp "$1.expected" "$2"; then
    echo "status $waiting_status and $other_status"
    diff <(cut -c 1-200 "$1.expected") <(cut -c 1-200 "$2") | head -n 10
    head -c 500 waiting.err other.err
    return 1
  fi
  diff -r "$1.files" received
}

# send_from END TO-END NAME KIND [WORD...]: sends the messages of that name. The words are arguments of the receiver.
send_from() {
  local sender=$1 receiver=$2 name=$3 kind=$4 items
  shift 4
  mapfile -t items <"$name.items"
  exchange "$receiver" "receive-$kind" "$@" -- "send-$kind" "${items[@]}"
  check "$name, from $sender" arrived "$name" waiting.out
}

# send_both_ways NAME KIND [WORD...]: sends the messages from the library to the peer and from the peer to the library.
send_both_ways() {
  send_from library python "$@"
  send_from python library "$@"
}

# send_as_listener NAME KIND [WORD...]: does the same as send_both_ways, but the sender waits for the connection.
send_as_listener() {
  local name=$1 kind=$2 items
  shift 2
  mapfile -t items <"$name.items"
  exchange library "send-$kind" "${items[@]}" -- "receive-$kind" "$@"
  check "$name, from library, which waits" arrived "$name" other.out
  exchange python "send-$kind" "${items[@]}" -- "receive-$kind" "$@"
  check "$name, from python, which waits" arrived "$name" other.out
}

# refused RECEIVER NAME REASON ITEM: checks that the receiver refuses the item and prints the reason.
refused() {
  exchange "$1" receive-messages received 1 -- send-messages "$4"
  check "$2 is refused" was_refused "$3"
}

was_refused() {
  [ "$waiting_status" -eq 1 ] && grep -qx "refused: $1" waiting.out && return
  echo "status $waiting_status, $(head -c 500 waiting.out waiting.err)"
  return 1
}

# quietly COMMAND...: runs a command and shows its output only if it fails.
quietly() {
  "$@" >quiet.out 2>&1 && return
  cat quiet.out
  return 1
}

count_of() {
  wc -l <"$1.items"
}

check "the peer by itself" quietly python3 -B -m unittest discover --quiet -s "$peer" -t "$peer"
python3 -B "$peer/make_contents.py" .
send_both_ways strings strings "$(count_of strings)"
send_as_listener strings strings "$(count_of strings)"
for name in trees raw file compressed mixed; do
  send_both_ways "$name" messages received "$(count_of "$name")"
done
send_as_listener mixed messages received "$(count_of mixed)"
mapfile -t kinds < <(sed 's/:.*//' datagrams.items)
send_both_ways datagrams datagrams received "${kinds[@]}"
send_from python library foreign messages received "$(count_of foreign)"
send_from python library foreign-datagrams datagrams received xml xml xml xml xml

refused python "raw data without a byte, from the library," "raw data of 0 bytes" raw:empty
refused library "raw data without a byte, from the peer," "receiving a message failed" raw:empty
for message in broken-*; do
  reason="receiving a message failed"
  [ "$message" != broken-message-of-unknown-type ] || reason="stopped in .*"
  refused library "${message#broken-}" "$reason" "bytes:$message"
done
summary "exchanges with a peer"
