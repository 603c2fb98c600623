#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the optimised build into an empty folder and builds the quick start against it, as a user of the package does.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
log="$PWD/build/package.log"
# The code of the first page is what people copy.
awk '/^```cpp$/ { inside = 1; next } /^```$/ { inside = 0 } inside' README.md >"$folder/readme.cpp"
{
  cmake --install build/linux-release --prefix "$folder/prefix"
  cmake -S tests/package -B "$folder/build" -G Ninja -DCMAKE_PREFIX_PATH="$folder/prefix" \
    -DREADME_SOURCE="$folder/readme.cpp" -DCMAKE_BUILD_TYPE=Release
  cmake --build "$folder/build"
  LD_LIBRARY_PATH="$folder/prefix/lib:$folder/prefix/lib/$(gcc -dumpmachine)" "$folder/build/core-only"
} >"$log" 2>&1 || {
  tail -n 30 "$log"
  exit 1
}
