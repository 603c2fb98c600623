#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# on-part-display.sh COMMAND...: runs a test program on the display of the part of the tests that NOLVEX_TEST_PART names,
# and in Wine's prefix of that part. If CTest was not started by a script, the program gets a new display.
set -euo pipefail
if [ -z "${NOLVEX_PART_DISPLAYS:-}" ]; then
  exec "$(dirname "$0")/on-private-display.sh" "$@"
fi
read -ra displays <<<"$NOLVEX_PART_DISPLAYS"
export DISPLAY=${displays[NOLVEX_TEST_PART - 1]} GDK_BACKEND=x11
unset WAYLAND_DISPLAY
if [ -n "${WINEPREFIX:-}" ]; then
  export WINEPREFIX=$WINEPREFIX-part-$NOLVEX_TEST_PART
fi
exec "$@"
