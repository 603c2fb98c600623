#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the optimised build into an empty folder and builds the quick start against the installation, as a user of
# the package does. Also checks what the installed viewer tells the desktop.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
log="$PWD/build/package.log"
# Users copy the code in README.md, so that it has to compile.
awk '/^```cpp$/ { inside = 1; next } /^```$/ { inside = 0 } inside' README.md >"$folder/readme.cpp"
{
  cmake --install build/linux-release --prefix "$folder/prefix"
  cmake -S tests/package -B "$folder/build" -G Ninja -DCMAKE_PREFIX_PATH="$folder/prefix" \
    -DREADME_SOURCE="$folder/readme.cpp" -DCMAKE_BUILD_TYPE=Release
  cmake --build "$folder/build"
  cmake -S tests/package/core -B "$folder/core" -G Ninja -DCMAKE_PREFIX_PATH="$folder/prefix" \
    -DCMAKE_DISABLE_FIND_PACKAGE_wxWidgets=ON
  cmake --build "$folder/core"
  "$folder/core/core-only"
  "$folder/prefix/bin/nolvex-viewer" --version
  tools/testing/desktop-data.sh "$folder/prefix"
  # Each header must compile alone, since a user may include it first.
  toolkit=$(wx-config --cxxflags)
  (cd "$folder/prefix/include" && find . -name '*.h') | xargs -P "$(nproc)" -I '{}' \
    g++ -std=c++20 -fsyntax-only -x c++ -include "{}" -I "$folder/prefix/include" $toolkit /dev/null
} >"$log" 2>&1 || {
  tail -n 30 "$log"
  exit 1
}
