#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wayland.sh BUILD-FOLDER [TEST...]: uses the viewer and the gallery on a Wayland desktop without a screen, natively and
# through XWayland, and captures the screen from the viewer. Named tests are those of check_desktop.py.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$1
shift
timeout 200 tools/testing/wayland-desktop.sh "$folder" /usr/bin/python3 -B tests/wayland/check_desktop.py "$@"
[ $# -gt 0 ] || timeout 100 tools/testing/wayland-desktop.sh "$folder" /usr/bin/python3 -B tests/wayland/check_capture.py
