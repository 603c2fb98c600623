#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wayland-desktop.sh FOLDER COMMAND...: runs the command on a Wayland desktop of its own, which needs no screen, with two
# outputs, XWayland, and a session bus on which assistive technology is the only service.
#
# The command has nothing of the user's session and, if the script runs as root, is run by the user nobody, because sway
# refuses root. The working folder of the command can be written to and holds copies of the programs and libraries of
# FOLDER, in bin/ and lib/, and of the scripts and the Python files of the tests, at their usual paths.
set -euo pipefail

# The outputs, whose sizes and places the checks know from these variables.
export NOLVEX_OUTPUTS="1280x800+0+0 800x600+1280+100"

# copy_programs FOLDER: copies what the command may need to the working folder.
copy_programs() {
  mkdir "$work/bin" "$work/lib"
  find "$1/bin" -maxdepth 1 -type f -size -4M -exec cp -t "$work/bin" {} +
  cp -P "$1"/lib/*.so* "$work/lib"
  cp --parents tests/*/*.py tools/*.sh tools/testing/*.sh "$work"
}

# describe_bus: writes the description of a bus that can start nothing but the bus of assistive technology.
describe_bus() {
  mkdir "$work/services"
  grep -v SystemdService /usr/share/dbus-1/services/org.a11y.Bus.service >"$work/services/org.a11y.Bus.service"
  cat >"$work/bus.conf" <<END
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=$work/bus</listen>
  <servicedir>$work/services</servicedir>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
END
}

# describe_desktop: writes the configuration of sway. Floating windows keep the size that the program asked for,
# and without borders they are where a check puts them.
describe_desktop() {
  cat >"$work/sway.conf" <<END
xwayland force
output * bg #406080 solid_color
default_border none
default_floating_border none
focus_follows_mouse no
for_window [title=".*"] floating enable
exec echo \$DISPLAY >$work/display
END
  local output number=0
  for output in $NOLVEX_OUTPUTS; do
    number=$((number + 1))
    IFS=+ read -r size x y <<<"$output"
    echo "output HEADLESS-$number mode $size position $x $y scale 1"
    echo "workspace $number output HEADLESS-$number"
  done >>"$work/sway.conf"
}

# hide_mouse: makes the mouse invisible, by a theme whose cursors are one transparent pixel. Without a screen, the mouse is
# part of every picture of the desktop.
hide_mouse() {
  local folder=$work/.icons/default/cursors name
  mkdir -p "$folder"
  # A header, a table of one entry, and an image of size 24 with its width, height, hot spot, delay and pixel.
  printf '%b' 'Xcur\x10\0\0\0\0\0\x01\0\x01\0\0\0' '\x02\0\xfd\xff\x18\0\0\0\x1c\0\0\0' \
    '\x24\0\0\0\x02\0\xfd\xff\x18\0\0\0\x01\0\0\0\x01\0\0\0\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0' >"$folder/left_ptr"
  for name in default arrow pointer hand1 hand2 text xterm cross crosshair watch wait progress grab grabbing fleur copy \
    dnd-copy dnd-move dnd-none dnd-ask no-drop not-allowed sb_v_double_arrow sb_h_double_arrow ns-resize ew-resize; do
    ln -s left_ptr "$folder/$name"
  done
  # GTK asks for this theme.
  ln -s default "$work/.icons/Adwaita"
}

# with_own_user COMMAND...
with_own_user() {
  if [ "$(id -u)" -ne 0 ]; then
    "$@"
  else
    chown -R nobody "$work"
    setpriv --reuid=nobody --regid=nogroup --clear-groups "$@"
  fi
}

# run_on_desktop COMMAND...: starts the desktop and runs the command there.
run_on_desktop() {
  export XDG_RUNTIME_DIR=$PWD/run
  mkdir -m 700 "$XDG_RUNTIME_DIR"
  WLR_BACKENDS=headless WLR_HEADLESS_OUTPUTS=$(wc -w <<<"$NOLVEX_OUTPUTS") WLR_LIBINPUT_NO_DEVICES=1 \
    WLR_RENDERER=pixman sway -c "$PWD/sway.conf" >sway.log 2>&1 &
  sway=$!
  trap 'kill "$sway" 2>/dev/null || true; wait "$sway" 2>/dev/null || true' EXIT
  for _ in $(seq 400); do
    [ -s display ] && break
    sleep 0.05
  done
  if [ ! -s display ]; then
    cat sway.log >&2
    return 1
  fi
  DISPLAY=$(cat display)
  WAYLAND_DISPLAY=$(basename "$(find "$XDG_RUNTIME_DIR" -name 'wayland-?')")
  SWAYSOCK=$(find "$XDG_RUNTIME_DIR" -name 'sway-ipc.*')
  export DISPLAY WAYLAND_DISPLAY SWAYSOCK
  "$@"
}

if [ "${NOLVEX_DESKTOP_STARTS:-}" ]; then
  unset NOLVEX_DESKTOP_STARTS
  run_on_desktop "$@"
  exit
fi

cd "$(dirname "$0")/../.."
. tools/testing/common.sh
need_packages "${WAYLAND_PACKAGES[@]}"
# Sockets have short paths only.
work=$(mktemp -d /tmp/nolvex-desktop.XXXXXX)
trap 'rm -rf "$work"' EXIT
copy_programs "$1"
shift
describe_bus
describe_desktop
hide_mouse
chmod -R a+rX "$work"
cd "$work"
status=0
# Scroll bars that lie over the content appear and fade by themselves, and would change pictures of the desktop.
with_own_user env -i PATH=/usr/bin:/bin HOME="$work" LANG=C.UTF-8 LD_LIBRARY_PATH="$work/lib" GSETTINGS_BACKEND=memory \
  GTK_OVERLAY_SCROLLING=0 NOLVEX_OUTPUTS="$NOLVEX_OUTPUTS" NOLVEX_DESKTOP_STARTS=yes \
  dbus-run-session --config-file="$work/bus.conf" -- tools/testing/wayland-desktop.sh "$@" 2>&1 |
  { grep --line-buffered -v -E '^(dbus-daemon|SpiRegistry)' || true; } || status=$?
if [ -n "${NOLVEX_DESKTOP_PICTURES:-}" ]; then
  mkdir -p "$NOLVEX_DESKTOP_PICTURES"
  find "$work" -maxdepth 1 -name '*.png' -exec cp -t "$NOLVEX_DESKTOP_PICTURES" {} +
fi
exit "$status"
