#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# desktop-data.sh PREFIX: checks what the viewer installed there tells the desktop about itself: the desktop file, the
# icons, the metadata for software centres, and the type of file that other programs do not know.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
need_packages "${DESKTOP_DATA_PACKAGES[@]}"
prefix=$(realpath "$1")
share="$prefix/share"
entry="$share/applications/nolvex-viewer.desktop"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

complain() {
  echo "desktop data: $*"
  failures=$((failures + 1))
}

# value_of KEY: prints the value in the main group of the desktop file.
value_of() {
  sed -n '/^\[Desktop Entry\]$/,/^$/s/^'"$1"'=//p' "$entry"
}

desktop-file-validate "$entry" >"$work/entry" 2>&1 || true
[ ! -s "$work/entry" ] || complain "$(cat "$work/entry")"
appstreamcli validate --no-net "$share"/metainfo/*.metainfo.xml >"$work/metadata" 2>&1 || complain "$(cat "$work/metadata")"
grep -q "<launchable type=\"desktop-id\">$(basename "$entry")</launchable>" "$share"/metainfo/*.metainfo.xml ||
  complain "the metadata does not name the desktop file"

# Both commands must start, and the options of the action must exist.
while read -r command options; do
  [ -x "$prefix/bin/$command" ] || complain "$command is not installed"
  for option in $options; do
    [[ $option == %F ]] || "$prefix/bin/$command" --help | grep -q -e "$option" || complain "$command knows no $option"
  done
done < <(sed -n 's/^Exec=//p' "$entry")

# The metadata and the desktop file name the icon without its size.
for size in 16 22 24 32 48 64 128 256 512; do
  icon="$share/icons/hicolor/${size}x$size/apps/$(value_of Icon).png"
  [ "$(file -b "$icon" | grep -o '[0-9]* x [0-9]*')" = "$size x $size" ] || complain "$icon is no icon of that size"
done

# Every type of file in the desktop file is known, and the test pictures are of those types.
mkdir "$work/data"
cp -r /usr/share/mime "$work/data"
cp "$share"/mime/packages/*.xml "$work/data/mime/packages"
update-mime-database "$work/data/mime" >"$work/types" 2>&1 || complain "$(cat "$work/types")"
for type in $(value_of MimeType | tr ';' ' '); do
  grep -qx "$type" "$work/data/mime/types" || complain "no program knows files of the type $type"
done
for picture in tests/data/images/pattern.*; do
  type=$(XDG_DATA_HOME="$work/data" XDG_DATA_DIRS="$work/data" gio info -a standard::content-type "$picture" |
    sed -n 's/ *standard::content-type: //p')
  [[ ";$(value_of MimeType)" == *";$type;"* ]] || complain "$picture has the type $type, which opens no viewer"
done
[ "$failures" -eq 0 ]
