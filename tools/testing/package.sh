#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the optimised build into an empty folder and builds programs against the installation in the ways in which
# users do: by CMake's package, by pkg-config, and with the sources in a folder of the user's project. Also checks that a
# wxWidgets that does not fit is refused, and what the installed viewer tells the desktop. Needs a display.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
log="$PWD/build/package.log"
prefix=$folder/prefix

with_find_package() {
  # Users copy the code in README.md, so that it has to compile.
  awk '/^```cpp$/ { inside = 1; next } /^```$/ { inside = 0 } inside' README.md >"$folder/readme.cpp"
  cmake -S tests/package -B "$folder/build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
    -DREADME_SOURCE="$folder/readme.cpp" -DCMAKE_BUILD_TYPE=Release
  cmake --build "$folder/build"
  "$folder/build/stranger"
  cmake -S tests/package/core -B "$folder/core" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_DISABLE_FIND_PACKAGE_wxWidgets=ON
  cmake --build "$folder/core"
  "$folder/core/core-only"
}

with_pkg_config() {
  local flags
  flags=$(PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name nolvexlibwx.pc)") pkg-config --cflags --libs nolvexlibwx)
  # shellcheck disable=SC2086
  g++ -std=c++20 -o "$folder/stranger" tests/package/stranger.cpp $flags
  LD_LIBRARY_PATH=$(dirname "$(find "$prefix" -name libNolvexLibWx.so)") "$folder/stranger"
}

# The build folder stays, because its compilation takes minutes when the compiler cache is empty.
with_add_subdirectory() {
  cmake -S tests/package/subdirectory -B build/package-subdirectory -G Ninja -DCMAKE_BUILD_TYPE=Release
  cmake --build build/package-subdirectory
  build/package-subdirectory/stranger
}

# refused_with WORDS FOLDER KIND: configuring the project in the folder fails with these words when wx-config says that
# wxWidgets is of this kind.
refused_with() {
  local words=$1 source=$2 kind=$3 fake=$folder/wx-config output
  cat >"$fake" <<SCRIPT
#!/bin/sh
case "\$*" in
*--selected-config*) echo $kind ;;
*--release* | *--version*) echo "${kind##*-}.1" ;;
*) exec wx-config "\$@" ;;
esac
SCRIPT
  chmod +x "$fake"
  rm -rf "$folder/refused"
  if output=$(cmake -S "$source" -B "$folder/refused" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
    -DwxWidgets_CONFIG_EXECUTABLE="$fake" -DREADME_SOURCE=/dev/null 2>&1); then
    echo "$source was configured with $kind"
    return 1
  fi
  # CMake breaks the lines.
  tr -s ' \n' ' ' <<<"$output" | grep -F "$words"
}

check_package() {
  cmake --install build/linux-release --prefix "$prefix"
  with_find_package
  with_pkg_config
  with_add_subdirectory
  refused_with "was built with wxWidgets gtk3-unicode-3.2, but this project finds gtk3-unicode-3.3" tests/package \
    gtk3-unicode-3.3
  refused_with "but this project finds gtk3-unicode-static-3.2" tests/package gtk3-unicode-static-3.2
  refused_with "cannot be built with wxWidgets gtk2-unicode-3.2. Install libwxgtk3.2-dev" . gtk2-unicode-3.2
  "$prefix/bin/nolvex-viewer" --version
  tools/testing/desktop-data.sh "$prefix"
  # Each header must compile alone, since a user may include it first.
  toolkit=$(wx-config --cxxflags)
  (cd "$prefix/include" && find . -name '*.h') | xargs -P "$(nproc)" -I '{}' \
    g++ -std=c++20 -fsyntax-only -x c++ -include "{}" -I "$prefix/include" $toolkit /dev/null
}

# Behind "||" and the like, bash goes on after a command that failed.
set +e
(
  set -e
  check_package
) >"$log" 2>&1
status=$?
set -e
[ "$status" -eq 0 ] || tail -n 30 "$log"
exit "$status"
