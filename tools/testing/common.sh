# SPDX-License-Identifier: MIT
# The scripts share these functions: installing packages, starting a private display, running tests and counting them. A
# sourcing bash script must have set -euo pipefail and changed to the root of the project.

. tools/package-lock.sh

# Some services start programs without HOME.
HOME=${HOME:-$(getent passwd "$(id -u)" | cut -d: -f6)}
export HOME

export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
# A compiler that was installed again has the same content, so that the cache stays valid.
export CCACHE_COMPILERCHECK=content
# The builds of one state take about 4 GB, and the objects of the state before are wanted, too.
export CCACHE_MAXSIZE=${CCACHE_MAXSIZE:-12G}
# Clones at different paths share the compiled objects.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

BUILD_PACKAGES=(build-essential cmake ninja-build ccache pkg-config git
  libwxgtk3.2-dev libgtk-3-dev libutfcpp-dev zlib1g-dev libpng-dev libtiff-dev
  libopenexr-dev libimath-dev libwebp-dev libstb-dev)
TEST_PACKAGES=(libgtest-dev libgmock-dev libbenchmark-dev libpugixml-dev libxtst-dev libwayland-dev
  libxkbcommon-dev locales openimageio-tools libopenimageio-dev)
DISPLAY_PACKAGES=(xvfb xauth openbox xclip x11-xserver-utils fonts-dejavu-core)
WAYLAND_PACKAGES=(sway xwayland grim wl-clipboard dbus at-spi2-core gir1.2-atspi-2.0 python3-gi xkb-data fonts-dejavu-core)
DESKTOP_DATA_PACKAGES=(desktop-file-utils appstream shared-mime-info libglib2.0-bin file)
STYLE_PACKAGES=(clang-format clang-tidy clang python3)
FUZZ_PACKAGES=(clang libclang-rt-dev)

say() {
  printf '== %s\n' "$*"
}

# need_packages PACKAGE...: installs the missing packages, and uses sudo only if packages are missing.
need_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then
    return
  fi
  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and installing them needs root: ${missing[*]}" >&2
      exit 1
    fi
    root=(sudo)
  fi
  say "installing ${missing[*]}"
  with_package_manager "${root[@]}" apt-get update -qq
  with_package_manager "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

display_processes=()

# use_display NUMBER: makes programs show their windows on this display, even on a Wayland desktop, which GTK would
# prefer. on-private-display.sh knows by NOLVEX_PRIVATE_DISPLAY that the display is not the user's.
use_display() {
  NOLVEX_PRIVATE_DISPLAY=$1
  DISPLAY=":$1"
  GDK_BACKEND=x11
  export NOLVEX_PRIVATE_DISPLAY DISPLAY GDK_BACKEND
  unset WAYLAND_DISPLAY
}

# start_server COMMAND...: starts an X server, which chooses and reports a free number, and makes programs use its
# display.
start_server() {
  local number_file
  number_file=$(mktemp)
  "$@" -displayfd 3 -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
  display_processes+=($!)
  for _ in $(seq 200); do
    [ -s "$number_file" ] && break
    sleep 0.05
  done
  if [ ! -s "$number_file" ]; then
    echo "The display for the programs could not be started ($1)." >&2
    exit 1
  fi
  use_display "$(cat "$number_file")"
  rm -f "$number_file"
}

start_window_manager() {
  openbox >/dev/null 2>&1 &
  display_processes+=($!)
  sleep 0.3
}

# start_display [WIDTHxHEIGHT]: starts an X server and a window manager for this script alone.
start_display() {
  need_packages "${DISPLAY_PACKAGES[@]}"
  start_server Xvfb -screen 0 "${1:-1280x1024}x24"
  start_window_manager
}

# The number of parts in which run_tests runs the long test programs, each part on a display of its own. These programs
# wait most of the time.
TEST_PARTS=4

# start_part_displays: starts the displays of the parts, and names them in NOLVEX_PART_DISPLAYS.
start_part_displays() {
  local display=$DISPLAY part
  NOLVEX_PART_DISPLAYS=
  for part in $(seq "$TEST_PARTS"); do
    start_display
    NOLVEX_PART_DISPLAYS+="$DISPLAY "
  done
  export NOLVEX_PART_DISPLAYS
  use_display "${display#:}"
}

stop_display() {
  local process
  for process in "${display_processes[@]}"; do
    kill "$process" 2>/dev/null || true
    wait "$process" 2>/dev/null || true
  done
  display_processes=()
}

# configure_and_build PRESET [CMAKE-ARGUMENT...]
configure_and_build() {
  local preset=$1 log
  shift
  log="build/$preset-build.log"
  mkdir -p build
  say "building $preset"
  local parts=("-DNOLVEX_TEST_PARTS=$TEST_PARTS" "-DNOLVEX_TEST_LAUNCHER=$PWD/tools/testing/on-part-display.sh")
  if ! { cmake --preset "$preset" "${parts[@]}" "$@" && cmake --build --preset "$preset"; } >"$log" 2>&1; then
    grep -m 20 -E -A8 'error|FAILED|Error' "$log" || true
    echo "The build failed; all of its output: $log"
    return 1
  fi
}

# count_tests LOG: adds the counts that GoogleTest reported in the log to passed, failed and skipped.
count_tests() {
  passed=$((passed + $(grep -cE '\[       OK \] .*ms\)' "$1" || true)))
  failed=$((failed + $(grep -cE '\[  FAILED  \] .*ms\)' "$1" || true)))
  skipped=$((skipped + $(grep -cE '\[  SKIPPED \] .*ms\)' "$1" || true)))
}

# run_tests NAME BUILD-FOLDER: runs all test programs, one at a time if they share a display; start_part_displays must
# have been called. Adds to passed, failed and skipped. A program that crashed, hung or ran no test counts as failed. Sets tests_run to the number of tests that
# GoogleTest reported.
run_tests() {
  local name=$1 folder=$2 log="build/$1-tests.log" passed_before=$passed failed_before=$failed status=0
  local before=$((passed + failed + skipped))
  say "testing $name"
  ctest --test-dir "$folder" --parallel $((TEST_PARTS + 1)) --verbose --no-tests=error >"$log" 2>&1 || status=$?
  count_tests "$log"
  tests_run=$((passed + failed + skipped - before))
  if [ "$status" -ne 0 ] || [ "$passed" -eq "$passed_before" ] || [ "$failed" -gt "$failed_before" ]; then
    [ "$failed" -gt "$failed_before" ] || failed=$((failed + 1))
    grep -m 60 -E '\*\*\*|: Failure|\[  FAILED  \]|ERROR: |SUMMARY: |runtime error' "$log" || true
    echo "All output of the tests: $log"
  fi
}

# run_test_program NAME COMMAND...: runs one test program with a time limit, and counts its tests as run_tests does.
run_test_program() {
  log_test_program "$@"
  count_test_program "$1"
}

# log_test_program NAME COMMAND...: runs one test program with a time limit. Several of these may run at the same time.
log_test_program() {
  local name=$1 status=0
  shift
  timeout 300 "$@" >"build/$name-tests.log" 2>&1 </dev/null || status=$?
  echo "$status" >"build/$name-tests.status"
}

# count_test_program NAME: counts the tests of the program that log_test_program has run.
count_test_program() {
  local log="build/$1-tests.log" passed_before=$passed failed_before=$failed status
  status=$(cat "build/$1-tests.status" || echo unknown)
  count_tests "$log"
  if [ "$status" != 0 ] || [ "$passed" -eq "$passed_before" ]; then
    [ "$failed" -gt "$failed_before" ] || failed=$((failed + 1))
    grep -m 40 -A4 -E ': Failure|\[  FAILED  \]' "$log" || true
    echo "Status $status. All output of the tests: $log"
  fi
}

# The tests that hold at every scale of the screen and run again at some of them.
SCALE_TESTS='DpiScalingTest.*:FontSetupTest.*:OskaBorder*:*SizeTest.*:*PixelTest.*:*FaceTest.*:PerScaleTest.*:*DensePixelsTest.*'

# test_at_scales FUNCTION NAME...: runs FUNCTION NAME for each name, all at the same time. The function must log a test
# program of that name; the tests are counted here.
test_at_scales() {
  local function=$1 name runs=()
  shift
  for name in "$@"; do
    rm -f "build/$name-tests.status"
    (
      trap stop_display EXIT
      display_processes=()
      "$function" "$name"
    ) &
    runs+=($!)
  done
  wait "${runs[@]}" || true # a run without a status counts as failed
  for name in "$@"; do
    count_test_program "$name"
  done
}

# summary NAME: prints the closing line. Succeeds if tests passed and no test failed.
summary() {
  echo "$1: $passed passed, $failed failed, $skipped skipped"
  [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}

# check NAME COMMAND...: runs a command and counts it as a test.
check() {
  local name=$1 start=$SECONDS
  shift
  if "$@"; then
    passed=$((passed + 1))
    # Of many short checks only those that fail are worth a line.
    [ $((SECONDS - start)) -eq 0 ] || say "$name passed in $((SECONDS - start)) s"
  else
    echo "FAILED: $name"
    failed=$((failed + 1))
  fi
}

started_checks=()

# start_check NAME COMMAND...: begins a check that runs beside the next checks, on the display of the first part of the
# tests and in Wine's prefix of that part. finish_checks waits for the checks that were started, and counts them.
start_check() {
  local name=$1
  shift
  (
    trap - EXIT
    NOLVEX_TEST_PART=1 exec tools/testing/on-part-display.sh "$@"
  ) >"build/check-$name.log" 2>&1 &
  started_checks+=("$!:$name")
}

finish_checks() {
  local entry
  for entry in "${started_checks[@]}"; do
    check "${entry#*:}" finish_check "${entry%%:*}" "build/check-${entry#*:}.log"
  done
  started_checks=()
}

# finish_check PROCESS LOG
finish_check() {
  local status=0
  wait "$1" || status=$?
  cat "$2"
  return "$status"
}
