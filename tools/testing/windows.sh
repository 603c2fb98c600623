#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The Windows build: every test under Wine, the tests of sizes again at 144 and 192 DPI, the zip, and the viewer from it.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
. tools/testing/wine.sh
passed=0 failed=0 skipped=0

build_windows
start_display
trap 'stop_wine; stop_display' EXIT
start_wine
run_tests windows "$WINDOWS_BUILD"
if [ -s build/linux-test-count ]; then
  check "as many tests as on Linux" [ "$((passed + failed + skipped))" -eq "$(cat build/linux-test-count)" ]
fi
check "exports" tools/testing/exports.sh "$WINDOWS_BUILD"/bin/Nolvex*.dll
check "viewer" tools/testing/viewer.sh tools/testing/run-wine.sh "$WINDOWS_BUILD/bin/nolvex-viewer.exe"
check "zip" tools/testing/zip.sh
stop_wine

for dpi in 144 192; do
  say "testing at $dpi DPI"
  start_wine "$dpi"
  log="build/windows-$dpi-tests.log"
  before=$((passed + failed))
  NOLVEX_TEST_SCALE=$((dpi * 100 / 96)) timeout 300 tools/testing/run-wine.sh "$WINDOWS_BUILD/bin/NolvexLibWxTests.exe" \
    --gtest_filter='DpiScalingTest.*:FontSetupTest.*:OskaBorder*' >"$log" 2>&1 || grep -A4 ': Failure' "$log" || true
  count_tests "$log"
  check "tests at $dpi DPI" [ "$((passed + failed))" -gt "$before" ]
  stop_wine
done
summary windows
