#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wayland.sh BUILD-FOLDER [TEST...]: uses the viewer and the gallery as a user does, natively on a Wayland desktop and
# through XWayland on another. A test that fails leaves a picture in the folder NOLVEX_DESKTOP_PICTURES, if that is set.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$1
shift

# use_programs TEST...
use_programs() {
  timeout 300 tools/testing/wayland-desktop.sh "$folder" /usr/bin/python3 -B tests/wayland/check_desktop.py "$@"
}

if [ $# -gt 0 ]; then
  use_programs "$@"
  exit
fi
# The desktops wait most of the time.
log=$(mktemp)
trap 'rm -f "$log"' EXIT
use_programs ViewerOnXWaylandTest GalleryOnXWaylandTest >"$log" 2>&1 &
status=0
use_programs ViewerOnWaylandTest GalleryOnWaylandTest || status=1
wait $! || status=1
cat "$log"
exit "$status"
