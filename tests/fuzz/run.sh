#!/bin/sh
# SPDX-License-Identifier: MIT
# run.sh <folder of the built programs> <runs>: runs every fuzzer on a copy of its corpus, ten times as often the one of
# what strangers send. A crash fails.
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
passed=0
failed=0

for corpus in "$corpora"/*/; do
    name=$(basename "$corpus")
    mkdir -p "$work/$name/artifacts"
    count=$runs
    [ "$name" != fuzzMessage ] || count=$((runs * 10))
    cp -R "$corpus" "$work/$name/corpus"
    # The pictures that the tests read.
    [ "$name" != fuzzImage ] || cp "$corpora"/../../data/images/formats/* "$corpora"/../../data/images/pattern* "$work/$name/corpus"
    if "$bin/$name" -runs="$count" -max_len=4096 -artifact_prefix="$work/$name/artifacts/" \
        "$work/$name/corpus" > "$work/$name/log" 2>&1; then
        echo "$name: $count runs"
        passed=$((passed + 1))
    else
        echo "$name: FAILED"
        tail -n 60 "$work/$name/log"
        for artifact in "$work/$name/artifacts"/*; do
            [ -f "$artifact" ] && { echo "$artifact:"; od -A x -t x1z "$artifact"; }
        done
        failed=$((failed + 1))
    fi
done

echo "fuzz: $passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
