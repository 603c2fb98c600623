#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Packs the Windows build, unpacks the zip elsewhere and starts the viewer from there, in the caller's Wine prefix,
# which should be new.
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
header=$(find "$folder/unpacked" -path '*include/NolvexLibWx/NolvexLibWx.h')
[ -n "$header" ]
