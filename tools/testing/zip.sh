#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Packs the Windows build, unpacks the zip elsewhere, starts the viewer from there, and builds and runs a user's project
# against what was unpacked, in the caller's Wine prefix, which should be new.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
(cd build/windows-release && cpack -B "$folder" >"$folder/cpack.log" 2>&1) || {
  tail -n 20 "$folder/cpack.log"
  exit 1
}
unzip -q "$folder"/*.zip -d "$folder/unpacked"
viewer=$(find "$folder/unpacked" -name nolvex-viewer.exe)
# The viewer starts in its own folder, so that no file of the build is beside it.
(cd "$(dirname "$viewer")" && timeout 120 wine ./nolvex-viewer.exe --screenshot shot.png)
[ -s "$(dirname "$viewer")/shot.png" ]

package=$(dirname "$(dirname "$viewer")")
for license in wxwidgets3.2/licence.txt libjpeg-turbo/README.ijg openexr/LICENSE.md GPL-3; do
  [ -s "$package/licenses/$license" ] || {
    echo "The zip has no licenses/$license."
    exit 1
  }
done

# The project knows MinGW-w64 and the unpacked zip, and nothing of the libraries that this machine may have.
{
  awk '/^```cpp$/ { inside = 1; next } /^```$/ { inside = 0 } inside' README.md >"$folder/readme.cpp"
  cmake -S tests/package -B "$folder/build" -G Ninja -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_COMPILER=x86_64-w64-mingw32-g++-posix -DCMAKE_PREFIX_PATH="$package" \
    -DREADME_SOURCE="$folder/readme.cpp" && cmake --build "$folder/build"
} >build/zip-project.log 2>&1 || {
  tail -n 30 build/zip-project.log
  exit 1
}
cp "$folder/build/stranger.exe" "$package/bin"
(cd "$package/bin" && timeout 120 wine ./stranger.exe)
