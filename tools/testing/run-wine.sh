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
exec wine "$program" "${arguments[@]}"
