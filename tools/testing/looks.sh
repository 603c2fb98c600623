#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# looks.sh FOLDER: runs the tests that depend on the look of the desktop, from this folder of programs, with the themes,
# languages and default fonts of several desktops. No text may be cut and no test may fail.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
programs=$1

# The tests by program. They measure texts, look at pixels or operate dialogs in the language of the user.
declare -A TESTS=(
  [NolvexGalleryTests]='TextFitTest.*:GalleryFrameTest.skin*'
  [NolvexViewerTests]='ViewerTextFitTest.*:ViewerLayoutTest.*:SystemPartsTest.*'
  [NolvexLibWxTests]='*PixelTest.*:*FaceTest.*:*SizeTest.*:TextControlTest.*:StaticTextTest.*:RightToLeftTest.*:FileDialogsTest.open_returns*'
)

# In windows from right to left, the other tests would have to look for everything on the other side.
declare -A RIGHT_TO_LEFT_TESTS=(
  [NolvexGalleryTests]='TextFitTest.*'
  [NolvexViewerTests]='ViewerTextFitTest.*:SystemPartsTest.*'
  [NolvexLibWxTests]='RightToLeftTest.*:FileDialogsTest.open_returns*'
)

FONT_PACKAGES=(fonts-noto-core fonts-cantarell fonts-noto-cjk)
fonts="${XDG_CACHE_HOME:-$HOME/.cache}/nolvexlibwx/font-packages"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# unpack_font PACKAGE: unpacks the package of a font. Installing it would give other fonts to all programs of the user.
unpack_font() {
  local part="$fonts/$1.$$"
  [ ! -e "$fonts/$1" ] || return 0
  say "downloading $1"
  mkdir -p "$part" "$folder/$1"
  if ! (cd "$folder/$1" && apt-get download -qq "$1" 2>"$folder/$1.log" && dpkg-deb -x "$1"_*.deb "$part"); then
    rm -rf "$part"
    cat "$folder/$1.log"
    echo "looks: the look cannot be checked without the package $1, which is not in $fonts and cannot be downloaded."
    echo "looks: downloading it needs the network once; apt-get update may help."
    exit 1
  fi
  rm -rf "${folder:?}/$1"
  # Another run may have been faster.
  mv -T "$part" "$fonts/$1" 2>/dev/null || rm -rf "$part"
}

# use_settings NAME LINE...: gives GTK the settings of a desktop in the lines of a file.
use_settings() {
  local place="$folder/$1"
  shift
  mkdir -p "$place/gtk-3.0"
  printf '%s\n' '[Settings]' "$@" >"$place/gtk-3.0/settings.ini"
  export XDG_CONFIG_HOME="$place"
}

# use_font NAME: uses this font, such as "Noto Sans 10", for everything. A sign that the font lacks comes from DejaVu.
use_font() {
  local package
  use_settings "font-$1" "gtk-font-name = $1"
  export FONTCONFIG_FILE="$XDG_CONFIG_HOME/fonts.conf"
  {
    echo '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>'
    for package in "${FONT_PACKAGES[@]}"; do
      echo "<dir>$fonts/$package/usr/share/fonts</dir>"
    done
    echo "<dir>/usr/share/fonts/truetype/dejavu</dir><cachedir>$fonts/cache</cachedir>"
    echo '<include ignore_missing="yes">/etc/fonts/conf.d</include></fontconfig>'
  } >"$FONTCONFIG_FILE"
}

# use_language LOCALE: the language of the user, of which GTK brings translations.
use_language() {
  localedef -i "${1%.*}" -f UTF-8 "$folder/$1"
  export LOCPATH="$folder" LANG=$1 LC_ALL='' LANGUAGE='' NOLVEX_TEST_LANGUAGE_OF_USER=1
}

use_look() {
  case $1 in
    # The variable GTK_THEME would also override what a program sets itself.
    dark) use_settings dark 'gtk-theme-name = Adwaita' 'gtk-application-prefer-dark-theme = true' ;;
    high-contrast) use_settings high-contrast 'gtk-theme-name = HighContrast' ;;
    german) use_language de_DE.UTF-8 ;;
    arabic) use_language ar_EG.UTF-8 && use_font 'Noto Sans 10' ;;
    japanese) use_language ja_JP.UTF-8 && use_font 'Noto Sans CJK JP 10' ;;
    noto) use_font 'Noto Sans 10' ;;
    cantarell) use_font 'Cantarell 11' ;;
  esac
}

# has_passed PATTERN LOG: succeeds if a test that the pattern describes has passed according to the log.
has_passed() {
  local name
  while read -r name; do
    # shellcheck disable=SC2053 # The right side is a pattern.
    [[ $name != $1 ]] || return 0
  done < <(sed -n 's/^\[       OK \] \([^ ]*\) .*/\1/p' "$2")
  echo "No test $1 has passed."
  return 1
}

# run_program PROGRAM TESTS LOG: runs these tests of the program, of which one of each pattern must pass.
run_program() {
  local status=0 pattern patterns
  timeout 240 "$programs/$1" --gtest_filter="$2" >"$3" 2>&1 </dev/null || status=$?
  if [ "$status" -ne 0 ]; then
    echo "$1 ends with status $status."
    grep -hE -A6 ': Failure|CRITICAL' "$3" || true
    return 1
  fi
  IFS=: read -ra patterns <<<"$2"
  for pattern in "${patterns[@]}"; do
    has_passed "$pattern" "$3" || status=1
  done
  return "$status"
}

# run_look NAME: runs the tests on a display of their own.
run_look() (
  use_look "$1"
  export GSETTINGS_BACKEND=memory G_DEBUG=fatal-criticals
  start_display
  trap stop_display EXIT
  status=0
  for program in "${!TESTS[@]}"; do
    tests=${TESTS[$program]}
    [ "$1" != arabic ] || tests=${RIGHT_TO_LEFT_TESTS[$program]}
    run_program "$program" "$tests" "$folder/$1-$program.log" || status=1
  done
  exit "$status"
)

need_packages "${TEST_PACKAGES[@]}" "${DISPLAY_PACKAGES[@]}"
mkdir -p "$fonts"
for package in "${FONT_PACKAGES[@]}"; do
  unpack_font "$package"
done
failed=0
# Two at a time, since the tests wait most of the time, but other checks run beside them.
for looks in 'dark high-contrast' 'german arabic' 'japanese noto' 'cantarell'; do
  runs=()
  for look in $looks; do
    run_look "$look" >"$folder/$look.log" 2>&1 &
    runs+=("$!:$look")
  done
  for run in "${runs[@]}"; do
    wait "${run%%:*}" || {
      failed=1
      echo "looks: tests fail with the look ${run#*:}:"
      head -40 "$folder/${run#*:}.log"
    }
  done
done
exit "$failed"
