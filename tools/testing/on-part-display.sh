#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# on-part-display.sh COMMAND...: runs a test program on the display of the part of the tests that NOLVEX_TEST_PART names,
# and in Wine's prefix of that part.
set -euo pipefail
read -ra displays <<<"$NOLVEX_PART_DISPLAYS"
export DISPLAY=${displays[NOLVEX_TEST_PART - 1]}
if [ -n "${WINEPREFIX:-}" ]; then
  export WINEPREFIX=$WINEPREFIX-part-$NOLVEX_TEST_PART
fi
exec "$@"
