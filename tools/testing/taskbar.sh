#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# taskbar.sh PROGRAM: reads the progress that PROGRAM (NolvexTaskbarSteps) shows in the docks of Linux desktops, over a
# private session bus.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
log=$(mktemp)
trap 'rm -f "$log"' EXIT

need_packages dbus python3-gi
timeout 200 dbus-run-session -- /usr/bin/python3 -B tests/taskbar/check_taskbar.py "$1" >"$log" 2>&1 </dev/null || {
  tail -n 20 "$log"
  exit 1
}
