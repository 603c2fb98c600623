#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# run-wine.sh PROGRAM.exe [ARGUMENT...]: runs a Windows program in the prefix that WINEPREFIX names. Absolute paths
# among the arguments are converted to Windows paths.
set -euo pipefail
program=$1
shift
arguments=()
for argument in "$@"; do
  case $argument in
    /*) arguments+=("Z:$argument") ;;
    *) arguments+=("$argument") ;;
  esac
done

# The first program with a window starts Wine's desktop, which inherits the error output and lives as long as any program
# with a window. A pipe to the caller would stay open as long, so that a caller who reads to the end of the pipe would
# wait. The errors go to a file instead, and from there to the caller at the end.
errors=$(mktemp)
trap 'rm -f "$errors"' EXIT
wine "$program" "${arguments[@]}" 2>"$errors" <&0 &
child=$!
trap 'kill "$child" 2>/dev/null || true' INT TERM
status=0
wait "$child" || status=$?
# A signal ends `wait` before the program ends.
while kill -0 "$child" 2>/dev/null; do
  status=0
  wait "$child" || status=$?
done
cat "$errors" >&2
exit "$status"
