#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Tests the functions that the scripts share: an installation waits for another installation and says so, and programs
# on a private display do not reach the user's desktop.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
need_packages python3
work=$(mktemp -d)
holder=
stop() {
  [ -z "$holder" ] || kill "$holder" 2>/dev/null || true
  stop_display
  rm -rf "$work"
}
trap stop EXIT
failures=0

complain() {
  echo "scripts: $*"
  failures=$((failures + 1))
}

# hold_lock: holds the lock as the package manager does, until the file $work/release exists.
hold_lock() {
  python3 - "$work" <<'PYTHON' &
import fcntl, os, sys, time
lock = open(sys.argv[1] + "/lock", "w")
fcntl.lockf(lock, fcntl.LOCK_EX)
open(sys.argv[1] + "/held", "w").close()
while not os.path.exists(sys.argv[1] + "/release"):
    time.sleep(0.05)
PYTHON
  holder=$!
  until [ -e "$work/held" ]; do
    sleep 0.05
  done
}

PACKAGE_LOCKS=("$work/no-such-lock" "$work/lock")
: >"$work/lock"
with_package_manager touch "$work/first" >"$work/output"
[ -e "$work/first" ] || complain "nothing was installed"
[ ! -s "$work/output" ] || complain "it waits without a reason: $(cat "$work/output")"
! with_package_manager false || complain "an installation that fails looks like a success"

hold_lock
with_package_manager touch "$work/second" >"$work/output" &
waiting=$!
until [ -s "$work/output" ]; do
  sleep 0.05
done
sleep 1
[ ! -e "$work/second" ] || complain "it did not wait for the other installation"
touch "$work/release"
wait "$waiting" || complain "the installation failed after the wait"
[ -e "$work/second" ] || complain "nothing was installed after the wait"
grep -q 'another installation is under way' "$work/output" || complain "it does not say why it waits"

rm "$work/held" "$work/release"
hold_lock
! MAX_PACKAGE_WAIT=1 with_package_manager touch "$work/third" >/dev/null || complain "it waits for ever"
[ ! -e "$work/third" ] || complain "it installed beside another installation"
touch "$work/release"
wait "$holder"
holder=

users_display=${DISPLAY:-}
export WAYLAND_DISPLAY=wayland-of-the-user
start_display
[ -z "${WAYLAND_DISPLAY:-}" ] || complain "programs on the display of a script find the user's Wayland desktop"
[ "${GDK_BACKEND:-}" = x11 ] || complain "GTK may look for another desktop"
[ "$DISPLAY" != "$users_display" ] || complain "programs show their windows on the user's display"

# As CTest does when no script has started it.
env -u NOLVEX_PRIVATE_DISPLAY -u NOLVEX_PART_DISPLAYS -u GDK_BACKEND DISPLAY=:of-the-user \
  WAYLAND_DISPLAY=wayland-of-the-user tools/testing/on-part-display.sh \
  bash -c 'echo "$DISPLAY ${WAYLAND_DISPLAY:-none} $GDK_BACKEND"' >"$work/output"
grep -qE '^:[0-9]+ none x11$' "$work/output" || complain "a test program finds the user's desktop: $(cat "$work/output")"
[ "$failures" -eq 0 ]
