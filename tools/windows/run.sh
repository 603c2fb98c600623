# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# Messages, the log, and programs run in such a way that a signal to the script ends them too.

LOG=/dev/null
child=
cleanup=()

log_to() {
    LOG="$1"
}

# Sets the command to be run at the end, however that comes about; without arguments, none.
at_end() {
    cleanup=("$@")
}

say() {
    printf '%s: %s\n' "$(basename -- "$0")" "$*" >&2
}

die() {
    say "error: $*"
    exit 1
}

die_with_log() {
    say "the last lines of $LOG:"
    tail -n 40 -- "$LOG" | sed 's/^/  | /' >&2
    die "$@"
}

# Runs a program with its output in the log. It gets a process group of its own and the shell waits
# for it as for a background job: only then is a signal acted upon at once and reaches the compilers.
run() {
    local status=0
    setsid -- "$@" >>"$LOG" 2>&1 </dev/null 3>&- &
    child=$!
    wait "$child" || status=$?
    child=
    return "$status"
}

# As run, but at the terminal, where sudo may have to ask for a password, and not cut short by a
# signal, which would be bad for an installation.
run_attached() {
    "$@" >>"$LOG" 2>&1 </dev/null 3>&-
}

# As run, and the end of everything when the program fails.
must() {
    local what="$1" status=0
    shift
    printf '\n=== %s: %s\n' "$what" "$*" >>"$LOG"
    run "$@" || status=$?
    ((status == 0)) || die_with_log "$what failed (exit status $status)"
}

at_exit() {
    local status=$?
    trap - EXIT INT TERM HUP
    if [[ -n $child ]]; then
        kill -TERM -- "-$child" 2>/dev/null || true
        wait "$child" 2>/dev/null || true
    fi
    if ((${#cleanup[@]} > 0)); then
        "${cleanup[@]}" >>"$LOG" 2>&1 || true
    fi
    exit "$status"
}

trap at_exit EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM
