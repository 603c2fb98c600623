#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wayland.sh BUILD-FOLDER [TEST...]: uses the viewer and the gallery as a user does, natively on a Wayland desktop and
# through XWayland on another, and captures the screen from the viewer on a third. Named tests are those of
# check_desktop.py. A test that fails leaves a picture in the folder NOLVEX_DESKTOP_PICTURES, if that is set.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$1
shift

# on_desktop CHECK [TEST...]
on_desktop() {
  local check=$1
  shift
  timeout 300 tools/testing/wayland-desktop.sh "$folder" /usr/bin/python3 -B "tests/wayland/$check" "$@"
}

if [ $# -gt 0 ]; then
  on_desktop check_desktop.py "$@"
  exit
fi
# The desktops wait most of the time.
logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT
on_desktop check_desktop.py ViewerOnXWaylandTest GalleryOnXWaylandTest >"$logs/xwayland" 2>&1 &
xwayland=$!
on_desktop check_capture.py >"$logs/capture" 2>&1 &
capture=$!
status=0
on_desktop check_desktop.py ViewerOnWaylandTest GalleryOnWaylandTest || status=1
wait "$xwayland" || status=1
wait "$capture" || status=1
cat "$logs"/*
exit "$status"
