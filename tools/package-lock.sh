# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Waits for the package manager, which serves one installation at a time. The sourcing script must define a function
# say.

PACKAGE_LOCKS=(/var/lib/dpkg/lock-frontend /var/lib/dpkg/lock /var/lib/apt/lists/lock /var/cache/apt/archives/lock)
MAX_PACKAGE_WAIT=1800 # seconds

# Succeeds if another process holds one of the locks. Every user can read the table of locks, but only root the lock
# files.
package_manager_is_busy() {
  local lock inode
  for lock in "${PACKAGE_LOCKS[@]}"; do
    inode=$(stat -c %i -- "$lock" 2>/dev/null) || continue
    ! grep -qE "POSIX .* WRITE .*:$inode " /proc/locks || return 0
  done
  return 1
}

wait_for_package_manager() {
  local end=$((SECONDS + MAX_PACKAGE_WAIT))
  package_manager_is_busy || return 0
  say "another installation is under way, waiting until it ends"
  while package_manager_is_busy; do
    if [ "$SECONDS" -ge "$end" ]; then
      echo "The other installation has not ended within $MAX_PACKAGE_WAIT seconds." >&2
      return 1
    fi
    sleep 1
  done
}

# with_package_manager COMMAND...: runs a command that installs packages when no other installation is under way. Fails
# if the command fails or the other installation does not end in time.
with_package_manager() {
  local status
  while true; do
    wait_for_package_manager || return
    status=0
    "$@" || status=$?
    # Another installation may have taken the lock first.
    [ "$status" -ne 0 ] && package_manager_is_busy || return "$status"
  done
}
