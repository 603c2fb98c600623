#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# on-private-display.sh COMMAND...: runs a test program on the display that a script has started for tests or, if CTest was
# not started by a script, on a new display, so that no test opens windows on the user's desktop.
set -euo pipefail
folder=$PWD
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
cd "$folder"
if [ -n "${NOLVEX_PRIVATE_DISPLAY:-}" ]; then
  use_display "$NOLVEX_PRIVATE_DISPLAY"
  exec "$@"
fi
trap stop_display EXIT
start_display >&2
"$@"
