#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# monitors.sh FOLDER: runs the tests of monitors, of screen captures, of placing windows on the screen and of dragging to
# its edges, from the test programs in FOLDER, on a display with several monitors. The tests of captures, and of the
# picture that the viewer shows, also run on a scaled desktop, with ten bits a channel and without shared memory. Of the
# X servers without a real screen, only one whose size VNC viewers can set has several monitors.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
need_packages tigervnc-standalone-server xvfb openbox python3
folder=$1
work=$(mktemp -d)

stop() {
  stop_display
  rm -rf "$work"
}
trap stop EXIT

start_server Xtigervnc -SecurityTypes None -rfbport -1 -rfbunixpath "$work/viewers" -noreset -depth 24
for _ in $(seq 200); do
  [ -S "$work/viewers" ] && break
  sleep 0.05
done
start_window_manager

# run PROGRAM FILTER: runs tests and prints the failures.
run() {
  timeout 200 env G_DEBUG=fatal-criticals "$folder/$1" --gtest_filter="$2" >"$work/tests.log" 2>&1 || {
    grep -A4 -E ': Failure|\[  FAILED  \]' "$work/tests.log" || tail -n 5 "$work/tests.log"
    return 1
  }
}

captures='ScreenCaptureTest.*:ScreenCaptureRequestTest.*-*tensOfThousands*'

# The arrangements: two monitors side by side at different heights, the right monitor first, and three monitors with a
# gap between them and none at the origin.
status=0
for monitors in '800x600+0+0 640x480+800+100' '640x480+640+0 640x480+0+200' '500x600+200+50 500x600+900+0 640x480+0+650'; do
  # shellcheck disable=SC2086
  python3 tools/testing/monitors.py "$work/viewers" $monitors
  sleep 0.5
  run NolvexLibWxTests "SeveralMonitorsTest.*:Monitors*:$captures" || status=1
  if grep 'there is only one monitor' "$work/tests.log"; then
    status=1
  fi
  run NolvexLibWxTests 'TooltipTest.atTheEdge*:TooltipTest.shown*:SpinnerDragTest.*' || status=1
  run NolvexLibWxTests 'ComboBoxDropdownTest.onAnyMonitor*:*.atTheBottomOf*' || status=1
  run NolvexViewerTests 'ViewerCommandsTest.capture*' || status=1
  [ $status -eq 0 ] || { echo "monitors: failed with $monitors"; exit 1; }
done

# other_screen NAME ARGUMENT...: runs the tests of captures on an X server with another kind of screen.
other_screen() {
  local name=$1
  shift
  start_server Xvfb "$@"
  run NolvexLibWxTests "$captures" && run NolvexViewerTests 'ImageViewTest.*' || {
    echo "monitors: failed $name"
    exit 1
  }
}

GDK_SCALE=2 other_screen 'on a scaled desktop' -screen 0 1280x1024x24
other_screen 'with ten bits a channel' -screen 0 1280x1024x30
other_screen 'without shared memory' -screen 0 1280x1024x24 -extension MIT-SHM
