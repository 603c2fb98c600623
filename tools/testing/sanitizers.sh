#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs every test under the address, leak and undefined-behaviour sanitizers, the tests of the core, the network, the
# task bar, the portal and the pictures over the wire under the thread sanitizer, and the fuzzers for a short time.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
passed=0 failed=0 skipped=0

need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${FUZZ_PACKAGES[@]}"
configure_and_build sanitizers
start_display
trap stop_display EXIT
export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1
LSAN_OPTIONS=suppressions=$PWD/tests/support/leaks.supp:print_suppressions=0
export LSAN_OPTIONS
start_part_displays
run_tests sanitizers build/sanitizers
check "accessibility" tools/testing/accessibility.sh build/sanitizers/bin
check "drag" tools/testing/drag.sh build/sanitizers/bin
check "peer" tools/testing/peer.sh build/sanitizers/bin/NolvexLibraryPeer
check "transfer" tools/testing/transfer.sh build/sanitizers/bin
check "task bar" tools/testing/taskbar.sh build/sanitizers/bin/NolvexTaskbarSteps

# wxWidgets is not instrumented, so that the thread sanitizer would report many false findings in tests with windows,
# but not in tests with sockets.
export TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1:suppressions=$PWD/tests/support/threads.supp
configure_and_build thread-sanitizer
for program in NolvexLibTests NolvexLibWxNetTests NolvexLibWxTaskbarTests NolvexLibWxPortalTests NolvexViewerWireTests; do
  run_test_program "$program-threads" "build/thread-sanitizer/bin/$program"
done
# Without the option, the end of the program would take a second, as if it waited for the bus.
TSAN_OPTIONS+=:atexit_sleep_ms=0 \
  check "task bar with threads" tools/testing/taskbar.sh build/thread-sanitizer/bin/NolvexTaskbarSteps

configure_and_build fuzz
say "fuzzing"
check "fuzzers" tests/fuzz/run.sh build/fuzz/bin "${NOLVEX_FUZZ_RUNS:-100000}"
summary sanitizers
