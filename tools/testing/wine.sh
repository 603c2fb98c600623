# SPDX-License-Identifier: MIT
# Builds for Windows and runs Windows programs under Wine. A script sources this file after common.sh.

WINDOWS_BUILD=build/windows-release

# build_windows [TARGET...]: prepares the libraries for the cross-build, then builds.
build_windows() {
  say "preparing the Windows build"
  NOLVEX_WINDOWS_PREFIX=$(tools/windows/prepare.sh)
  export NOLVEX_WINDOWS_PREFIX
  # A configuration made with another prefix cannot be changed to this one.
  if [ -f "$WINDOWS_BUILD/CMakeCache.txt" ] && ! grep -qF "=$NOLVEX_WINDOWS_PREFIX" "$WINDOWS_BUILD/CMakeCache.txt"; then
    rm -rf "$WINDOWS_BUILD"
  fi
  configure_and_build windows-release "-DCMAKE_CROSSCOMPILING_EMULATOR=$PWD/tools/testing/run-wine.sh"
}

WINE_TEMPLATE=$PWD/build/wine-template

# make_wine_template: makes the prefix that start_wine copies. To be called once by a script.
make_wine_template() {
  rm -rf build/wine-*-part-* # an earlier run with more parts
  tools/windows/prepare.sh --wine-prefix "$WINE_TEMPLATE" >/dev/null
}

# copy_wine_template: makes WINEPREFIX from the template. Wine's own libraries, which no program writes to and which fill
# 700 MB, are shared with the template by hard links.
copy_wine_template() {
  mkdir -p "$WINEPREFIX"
  tar -C "$WINE_TEMPLATE" --exclude=./drive_c/windows -cf - . | tar -C "$WINEPREFIX" -xf -
  cp -al "$WINE_TEMPLATE/drive_c/windows" "$WINEPREFIX/drive_c/"
}

# start_wine [DPI [NAME]]: makes a new Wine prefix for this script alone, with the system's DPI set, and starts Wine on the
# display in use. stop_wine ends it.
start_wine() {
  local dpi=${1:-96}
  WINEPREFIX=$PWD/build/wine-${2:-$dpi}
  export WINEPREFIX WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
  # A program that crashes ends; Wine's debugger would keep it waiting until the time limit of its test.
  WINEDLLOVERRIDES+=';winedbg.exe=d'
  rm -rf "$WINEPREFIX"
  copy_wine_template
  if [ "$dpi" -ne 96 ]; then
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null 2>&1
    wineserver -w
  fi
  # The Wine server stays alive between two programs: each start would cost a second, and services that a test started
  # would keep the output of that test open for ever.
  wineserver -p
  wine cmd /c exit >/dev/null 2>&1 </dev/null
}

stop_wine() {
  wineserver -k 2>/dev/null || true
  wineserver -w 2>/dev/null || true
}

# start_wine_of_parts, stop_wine_of_parts: the prefixes that on-part-display.sh uses for the parts of the tests.
start_wine_of_parts() {
  local part=0 display
  for display in $NOLVEX_PART_DISPLAYS; do
    part=$((part + 1))
    (use_display "${display#:}"; start_wine 96 "96-part-$part")
  done
}

stop_wine_of_parts() {
  local part
  for part in $(seq "$TEST_PARTS"); do
    (export WINEPREFIX=$PWD/build/wine-96-part-$part; stop_wine)
  done
}
