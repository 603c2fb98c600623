#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds and runs the benchmarks, which print a line for each figure: NAME ratio VALUE goal GOAL, where higher is
# better. The benchmark programs get the arguments of the script (--filter REGEX, --list, --check).
set -euo pipefail
cd "$(dirname "$0")"
. tools/testing/common.sh

{
  need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
  configure_and_build linux-release
} >&2
trap stop_display EXIT
start_display >&2
for program in build/linux-release/bin/*Benchmarks; do
  "$program" "$@"
done
