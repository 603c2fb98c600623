#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the style, makes the optimised build, and runs every test on a private display, the tests of monitors again
# with several monitors, the programs on a Wayland desktop, the installed package, and the viewer as a user starts it.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
passed=0 failed=0 skipped=0

need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
check "style" tools/testing/style.sh
check "scripts" tools/testing/scripts.sh
configure_and_build linux-release
start_display
trap stop_display EXIT
start_part_displays
run_tests linux build/linux-release
# listed PROGRAM FILTER: prints the number of tests.
listed() {
  "build/linux-release/bin/$1" --gtest_filter="$2" --gtest_list_tests | grep -c '^  '
}

# The Windows run of the same commit must run the same number of tests, apart from those of the desktop portal.
portal_tests=$(($(listed NolvexLibWxPortalTests '*') + $(listed NolvexLibWxLifecycleTests 'OpenPortal*')))
echo "$(git rev-parse HEAD) $((tests_run - portal_tests))" >build/linux-test-count
# The gallery takes pictures for minutes and waits most of the time.
start_check "viewer" tools/testing/viewer.sh build/linux-release/bin/nolvex-viewer
start_check "wayland" tools/testing/wayland.sh build/linux-release
start_check "Debian packages" tools/testing/debian.sh
start_check "looks" tools/testing/looks.sh build/linux-release/bin
check "gallery" tools/testing/gallery.sh build/linux-release/bin/nolvex-gallery
check "accessibility" tools/testing/accessibility.sh build/linux-release/bin
check "drag" tools/testing/drag.sh build/linux-release/bin
check "peer" tools/testing/peer.sh build/linux-release/bin/NolvexLibraryPeer
check "transfer" tools/testing/transfer.sh build/linux-release/bin
check "hosts" tools/testing/hosts.sh build/linux-release
check "pictures" tools/testing/pictures.sh build/linux-release/bin
check "saved files" tools/testing/saved-files.sh build/linux-release/bin
check "task bar" tools/testing/taskbar.sh build/linux-release/bin/NolvexTaskbarSteps
check "monitors" tools/testing/monitors.sh build/linux-release/bin
check "exports" tools/testing/exports.sh build/linux-release/lib/libNolvex*.so
check "package" tools/testing/package.sh

# test_at_scale linux-PERCENT: tests with the text scaling of the desktop.
test_at_scale() {
  local percent=${1#linux-}
  start_display 1920x1200
  echo "Xft.dpi: $((percent * 96 / 100))" | xrdb -merge
  NOLVEX_TEST_SCALE=$percent G_DEBUG=fatal-criticals log_test_program "$1" \
    build/linux-release/bin/NolvexLibWxTests --gtest_filter="$SCALE_TESTS"
  stop_display
}

say "testing at other scales"
test_at_scales test_at_scale linux-125 linux-150 linux-200 linux-300
finish_checks
summary linux
