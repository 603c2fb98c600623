#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# ./demo.sh [--windows] [IMAGE]: builds the viewer and opens the image or the bundled sample with it. Without a display
# the viewer runs on a virtual display, and the script writes screenshots and prints their paths. --windows runs the
# Windows build under Wine.
set -euo pipefail
here=$PWD
cd "$(dirname "$0")"
. tools/testing/common.sh

windows=no image=
for argument in "$@"; do
  case $argument in
    --windows) windows=yes ;;
    -h | --help)
      echo "usage: ./demo.sh [--windows] [IMAGE]"
      exit 0
      ;;
    -*)
      echo "There is no option $argument." >&2
      exit 2
      ;;
    /*) image=$argument ;;
    *) image=$here/$argument ;;
  esac
done

if [ $windows = yes ]; then
  . tools/testing/wine.sh
  build_windows
  viewer=(tools/testing/run-wine.sh build/windows-release/bin/nolvex-viewer.exe)
else
  need_packages "${BUILD_PACKAGES[@]}"
  configure_and_build demo
  viewer=(build/demo/bin/nolvex-viewer)
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ $windows = no ]; then
  exec "${viewer[@]}" ${image:+"$image"}
fi
start_display
if [ $windows = yes ]; then
  trap 'stop_wine; stop_display' EXIT
  make_wine_template
  start_wine 96 demo
else
  trap stop_display EXIT
fi
mkdir -p screenshots
screenshot=$PWD/screenshots/viewer.png
[ $windows = no ] || screenshot=$PWD/screenshots/viewer-windows.png
"${viewer[@]}" --screenshot "$screenshot" ${image:+"$image"}
echo "$screenshot"
