#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the optimised build into an empty folder and builds the quick start against it, as a user of the package does.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
log="$PWD/build/package.log"
{
  cmake --install build/linux-release --prefix "$folder/prefix"
  cmake -S tests/package -B "$folder/build" -G Ninja -DCMAKE_PREFIX_PATH="$folder/prefix" -DCMAKE_BUILD_TYPE=Release
  cmake --build "$folder/build"
  LD_LIBRARY_PATH="$folder/prefix/lib:$folder/prefix/lib/$(gcc -dumpmachine)" "$folder/build/core-only"
} >"$log" 2>&1 || {
  tail -n 30 "$log"
  exit 1
}
