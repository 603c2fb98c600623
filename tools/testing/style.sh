#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs clang-format and clang-tidy over all sources and prints their findings. The status is 1 if there are any.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh

need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${STYLE_PACKAGES[@]}"
say "checking style"
git ls-files -co --exclude-standard '*.h' '*.cpp' | xargs clang-format --dry-run -Werror

mkdir -p build
# clang cannot read precompiled headers of gcc and needs a separate configuration, in which nothing is built. clang-tidy
# skips the tests, because it would report findings in the macros of GoogleTest and take twice the time.
cmake -S . -B build/tidy -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_CXX_COMPILER_LAUNCHER= \
  -DNOLVEX_BUILD_TESTS=OFF \
  >build/tidy.log 2>&1 || { cat build/tidy.log; exit 1; }
python3 tools/testing/tidy.py build/tidy
