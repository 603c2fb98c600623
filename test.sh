#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs missing packages, then builds and runs every test: on Linux, under the sanitizers, and under Wine. ./test.sh
# linux|sanitizers|windows runs only one of the three.
set -euo pipefail
cd "$(dirname "$0")"

runs=("$@")
[ ${#runs[@]} -gt 0 ] || runs=(linux sanitizers windows)
status=0
for run in "${runs[@]}"; do
  case $run in
    linux | sanitizers | windows) "tools/testing/$run.sh" || status=1 ;;
    *)
      echo "usage: ./test.sh [linux|sanitizers|windows]..." >&2
      exit 2
      ;;
  esac
done
exit $status
