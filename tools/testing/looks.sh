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
RIGHT_TO_LEFT_TESTS='TextFitTest.*:ViewerTextFitTest.*:SystemPartsTest.*:RightToLeftTest.*:FileDialogsTest.open_returns*'

FONT_PACKAGES=(fonts-noto-core fonts-cantarell fonts-noto-cjk)
fonts="${XDG_CACHE_HOME:-$HOME/.cache}/nolvexlibwx/fonts"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# Unpacks the packages of the fonts. Installing them would give other fonts to all programs of the user.
unpack_fonts() {
  local package part="$fonts.$$"
  [ ! -e "$fonts" ] || return 0
  say "downloading ${FONT_PACKAGES[*]}"
  mkdir -p "$part/packages"
  for package in "${FONT_PACKAGES[@]}"; do
    if ! (cd "$part/packages" && apt-get download -qq "$package" 2>/dev/null); then
      echo "looks: the package $package cannot be downloaded; apt-get update may help."
      rm -rf "$part"
      exit 1
    fi
    dpkg-deb -x "$part/packages/${package}"_*.deb "$part"
  done
  rm -rf "$part/packages"
  # Another run may have been faster.
  mv -T "$part" "$fonts" 2>/dev/null || rm -rf "$part"
}

# make_font NAME: makes the files by which GTK uses this font, such as "Noto Sans 10", for everything. A sign that the
# font lacks comes from DejaVu.
make_font() {
  local place="$folder/font-$1" kind
  mkdir -p "$place/gtk-3.0"
  printf '[Settings]\ngtk-font-name = %s\n' "$1" >"$place/gtk-3.0/settings.ini"
  {
    echo '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>'
    for kind in truetype/noto opentype/noto opentype/cantarell; do
      echo "<dir>$fonts/usr/share/fonts/$kind</dir>"
    done
    echo "<dir>/usr/share/fonts/truetype/dejavu</dir><cachedir>$fonts/cache</cachedir>"
    echo '<include ignore_missing="yes">/etc/fonts/conf.d</include></fontconfig>'
  } >"$place/fonts.conf"
}

# use_font NAME
use_font() {
  make_font "$1"
  export FONTCONFIG_FILE="$folder/font-$1/fonts.conf" XDG_CONFIG_HOME="$folder/font-$1"
}

# use_language LOCALE: the language of the user, of which GTK brings translations.
use_language() {
  localedef -i "${1%.*}" -f UTF-8 "$folder/$1"
  export LOCPATH="$folder" LANG=$1 LC_ALL='' LANGUAGE='' NOLVEX_TEST_LANGUAGE_OF_USER=1
}

use_look() {
  case $1 in
    dark) export GTK_THEME=Adwaita:dark ;;
    high-contrast) export GTK_THEME=HighContrast ;;
    german) use_language de_DE.UTF-8 ;;
    arabic) use_language ar_EG.UTF-8 && use_font 'Noto Sans 10' ;;
    japanese) use_language ja_JP.UTF-8 && use_font 'Noto Sans CJK JP 10' ;;
    noto) use_font 'Noto Sans 10' ;;
    cantarell) use_font 'Cantarell 11' ;;
  esac
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
    [ "$1" != arabic ] || tests=$RIGHT_TO_LEFT_TESTS
    timeout 120 "$programs/$program" --gtest_filter="$tests" >"$folder/$1-$program.log" 2>&1 </dev/null ||
      status=1
    grep -qF '[  PASSED  ]' "$folder/$1-$program.log" || status=1
    [ "$status" -eq 0 ] || grep -hE -A6 ': Failure|CRITICAL' "$folder/$1-$program.log" || true
  done
  exit "$status"
)

need_packages "${TEST_PACKAGES[@]}" "${DISPLAY_PACKAGES[@]}"
unpack_fonts
failed=0
# Four at a time, since the tests wait most of the time.
for looks in 'dark high-contrast german arabic' 'japanese noto cantarell'; do
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
