# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Waiting for the package manager, which serves one installation at a time. Sourced by scripts that have a function say.

PACKAGE_LOCKS=(/var/lib/dpkg/lock-frontend /var/lib/dpkg/lock /var/lib/apt/lists/lock /var/cache/apt/archives/lock)
MAX_PACKAGE_WAIT=1800 # seconds

# Whether another process holds one of the locks. The table of locks can be read by everyone, the files only by root.
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

# with_package_manager COMMAND...: runs a command that installs, when no other installation is under way. Fails as the
# command does, or if the other installation does not end.
with_package_manager() {
  local status
  while true; do
    wait_for_package_manager || return
    status=0
    "$@" || status=$?
    # Another installation may have been quicker.
    [ "$status" -ne 0 ] && package_manager_is_busy || return "$status"
  done
}
