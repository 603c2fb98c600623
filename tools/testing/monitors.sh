#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# monitors.sh FOLDER: the tests of monitors, of capturing the screen and of what is placed on it, from the test programs in
# the folder, on a display with several monitors; those of capturing also on a scaled desktop, with ten bits a channel and
# without shared memory. X servers without a screen have one monitor each, but for those that viewers may give the size
# of theirs.
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

# run PROGRAM FILTER: prints what failed.
run() {
  timeout 200 env G_DEBUG=fatal-criticals "$folder/$1" --gtest_filter="$2" >"$work/tests.log" 2>&1 || {
    grep -A4 -E ': Failure|\[  FAILED  \]' "$work/tests.log" || tail -n 5 "$work/tests.log"
    return 1
  }
}

captures='ScreenCaptureTest.*-*tensOfThousands*'

# Side by side at different heights; the right one first; with a gap between them and none at the origin.
status=0
for monitors in '800x600+0+0 640x480+800+100' '640x480+640+0 640x480+0+200' '500x600+200+50 500x600+900+0 640x480+0+650'; do
  # shellcheck disable=SC2086
  python3 tools/testing/monitors.py "$work/viewers" $monitors
  sleep 0.5
  run NolvexLibWxTests "SeveralMonitorsTest.*:Monitors*:$captures" || status=1
  if grep 'there is only one monitor' "$work/tests.log"; then
    status=1
  fi
  run NolvexLibWxTests 'TooltipTest.atTheEdge*:TooltipTest.shown*' || status=1
  run NolvexViewerTests 'ViewerCommandsTest.capture*' || status=1
  [ $status -eq 0 ] || { echo "monitors: failed with $monitors"; exit 1; }
done

# other_screen NAME ARGUMENT...: the captures on a server with another kind of screen.
other_screen() {
  local name=$1
  shift
  start_server Xvfb "$@"
  run NolvexLibWxTests "$captures" || { echo "monitors: failed $name"; exit 1; }
}

GDK_SCALE=2 other_screen 'on a scaled desktop' -screen 0 1280x1024x24
other_screen 'with ten bits a channel' -screen 0 1280x1024x30
other_screen 'without shared memory' -screen 0 1280x1024x24 -extension MIT-SHM
