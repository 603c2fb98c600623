#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs every test of the Windows build under Wine, the tests of sizes again at the scales 125 % to 300 %, and packs the
# zip and starts the viewer from it.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
. tools/testing/wine.sh
passed=0 failed=0 skipped=0

build_windows
start_display
trap 'stop_wine_of_parts; stop_wine; stop_display' EXIT
start_part_displays
make_wine_template
start_wine_of_parts
start_wine
run_tests windows "$WINDOWS_BUILD"
linux_count=$(sed -n "s/^$(git rev-parse HEAD) //p" build/linux-test-count 2>/dev/null || true)
if [ -n "$linux_count" ]; then
  # Tests that cannot run on this system say why and count as skipped.
  check "as many tests as on Linux ($tests_run, there $linux_count)" [ "$tests_run" -eq "$linux_count" ]
else
  echo "The Linux tests of this state were not run here: their number is not compared."
fi
# The gallery takes pictures for minutes and waits most of the time.
start_check "gallery" tools/testing/gallery.sh tools/testing/run-wine.sh "$WINDOWS_BUILD/bin/nolvex-gallery.exe"
check "exports" tools/testing/exports.sh "$WINDOWS_BUILD"/bin/Nolvex*.dll
check "viewer" tools/testing/viewer.sh tools/testing/run-wine.sh "$WINDOWS_BUILD/bin/nolvex-viewer.exe"
check "accessibility" tools/testing/accessibility.sh "$WINDOWS_BUILD/bin" tools/testing/run-wine.sh
check "drag" tools/testing/drag.sh "$WINDOWS_BUILD/bin" tools/testing/run-wine.sh
check "peer" tools/testing/peer.sh tools/testing/run-wine.sh "$WINDOWS_BUILD/bin/NolvexLibraryPeer.exe"
check "transfer" tools/testing/transfer.sh "$WINDOWS_BUILD/bin" tools/testing/run-wine.sh
check "hosts" tools/testing/hosts.sh "$WINDOWS_BUILD" tools/testing/run-wine.sh
check "pictures" tools/testing/pictures.sh "$WINDOWS_BUILD/bin" tools/testing/run-wine.sh
check "saved files" tools/testing/saved-files.sh "$WINDOWS_BUILD/bin" tools/testing/run-wine.sh
stop_wine
start_wine 96 fresh
check "zip" tools/testing/zip.sh
stop_wine
finish_checks
stop_wine_of_parts

# test_at_dpi windows-DPI
test_at_dpi() {
  local dpi=${1#windows-}
  start_display
  start_wine "$dpi"
  NOLVEX_TEST_SCALE=$((dpi * 100 / 96)) log_test_program "$1" \
    tools/testing/run-wine.sh "$WINDOWS_BUILD/bin/NolvexLibWxTests.exe" --gtest_filter="$SCALE_TESTS"
  stop_wine
  stop_display
}

say "testing at other scales"
test_at_scales test_at_dpi windows-120 windows-144 windows-192 windows-288
summary windows
