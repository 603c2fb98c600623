#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# accessibility.sh FOLDER [WRAPPER]: reads and clicks the controls through the system's interfaces for assistive
# technology. FOLDER contains the programs. WRAPPER runs Windows programs, where another Windows program reads the
# controls.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
folder=$1
shift
work=$(mktemp -d)
program=

stop() {
  [ -z "$program" ] || kill "$program" 2>/dev/null || true
  stop_display
  rm -rf "$work"
}
trap stop EXIT

# show_controls COMMAND...
show_controls() {
  G_DEBUG=fatal-criticals timeout 200 "$@" >"$work/program.log" 2>&1 </dev/null &
  program=$!
}

# read_controls EXPECTED COMMAND...: the last line of EXPECTED expects the end of the program.
read_controls() {
  local expected=$1 status=0
  shift
  if ! timeout 200 "$@" <"$expected"; then
    tail -n 20 "$work/program.log"
    return 1
  fi
  wait "$program" || status=$?
  program=
  if [ "$status" -ne 0 ] || grep -i critical "$work/program.log"; then
    echo "accessibility: the program with the controls ended with status $status"
    tail -n 20 "$work/program.log"
    return 1
  fi
}

# The panels of the viewer, some of which are hidden until their buttons are clicked.
read_viewer() {
  XDG_CONFIG_HOME=$work show_controls "$folder/nolvex-viewer" "$folder/sample.pfm" tests/data/images/pattern.png
  if ! timeout 200 /usr/bin/python3 -B -W ignore::DeprecationWarning tests/accessibility/read_controls.py \
    'sample.pfm (448 × 280)' <tests/accessibility/expected-viewer.txt || grep -i critical "$work/program.log"; then
    echo "accessibility: the viewer does not tell what it should"
    tail -n 20 "$work/program.log"
    return 1
  fi
}

if [ $# -gt 0 ]; then
  show_controls "$@" "$folder/NolvexAccessibleControls.exe"
  read_controls tests/accessibility/expected-windows.txt "$@" "$folder/NolvexAccessibleReader.exe"
elif [ "${NOLVEX_ON_PRIVATE_BUS:-}" ]; then
  show_controls "$folder/NolvexAccessibleControls"
  read_controls tests/accessibility/expected-linux.txt \
    /usr/bin/python3 -B -W ignore::DeprecationWarning tests/accessibility/read_controls.py
  read_viewer
else
  need_packages dbus at-spi2-core gir1.2-atspi-2.0 python3-gi
  # The test uses a private bus. The bus is announced on the display, so that the display has to be private, too.
  start_display
  NOLVEX_ON_PRIVATE_BUS=yes dbus-run-session -- "$0" "$folder" >"$work/bus.log" 2>&1 || {
    grep -v -E '^(dbus-daemon|SpiRegistry)' "$work/bus.log" || true
    exit 1
  }
fi
