#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# run.sh <folder of the built programs> <runs>: runs every fuzzer on a copy of its corpus, as many fuzzers at once as
# there are processors. The fuzzer of messages runs ten times as often, because messages come from strangers. A crash
# fails.
set -u
if [ $# -ne 2 ]; then
  echo "usage: $0 <build-bin-dir> <runs>" >&2
  exit 2
fi
bin=$1
runs=$2
corpora=$(dirname "$0")/corpus
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT

# fuzz NAME RUNS: runs one fuzzer and prints its output at the end, because several fuzzers run at once.
fuzz() {
  local name=$1 count=$2 artifact
  mkdir -p "$work/$name/artifacts"
  cp -R "$corpora/$name" "$work/$name/corpus"
  # The fuzzers of pictures start from the pictures of the tests.
  [[ "$name" != fuzzImage && "$name" != fuzzPicture ]] ||
    cp "$corpora"/../../data/images/formats/* "$corpora"/../../data/images/pattern* "$work/$name/corpus"
  if "$bin/$name" -runs="$count" -max_len=4096 -artifact_prefix="$work/$name/artifacts/" \
    "$work/$name/corpus" >"$work/$name/log" 2>&1; then
    echo "$name: $count runs"
    touch "$work/$name/passed"
    return
  fi
  {
    echo "$name: FAILED"
    tail -n 60 "$work/$name/log"
    for artifact in "$work/$name/artifacts"/*; do
      [ -f "$artifact" ] && { echo "$artifact:"; od -A x -t x1z "$artifact"; }
    done
  } >"$work/$name/report"
  cat "$work/$name/report"
}

# The fuzzer that takes longest starts first.
names=(fuzzMessage)
for corpus in "$corpora"/*/; do
  name=$(basename "$corpus")
  [ "$name" = fuzzMessage ] || names+=("$name")
done
for name in "${names[@]}"; do
  while [ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]; do
    wait -n
  done
  count=$runs
  [ "$name" != fuzzMessage ] || count=$((runs * 10))
  fuzz "$name" "$count" &
done
wait

passed=0
for name in "${names[@]}"; do
  [ ! -e "$work/$name/passed" ] || passed=$((passed + 1))
done
failed=$((${#names[@]} - passed))
echo "fuzz: $passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
