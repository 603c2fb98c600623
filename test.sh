#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds and runs every test: on Linux, under the sanitizers, and the Windows build under Wine.
# ./test.sh linux|sanitizers|windows runs one of them.
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
