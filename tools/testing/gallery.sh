#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# gallery.sh COMMAND...: runs the gallery, which writes a picture of every page, every dialog and every state of the controls
# in every skin, and checks the pictures. NOLVEX_GALLERY_PICTURES names a folder that keeps the pictures.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() {
  echo "gallery: $*"
  exit 1
}

# The gallery itself reports an error if a control does not get into its state.
timeout 400 "$@" --screenshots "$folder" || fail "the pictures were not taken"
if [ -n "${NOLVEX_GALLERY_PICTURES:-}" ]; then
  mkdir -p "$NOLVEX_GALLERY_PICTURES"
  cp "$folder"/*.png "$NOLVEX_GALLERY_PICTURES"
fi

# names SKIN: the names of the pictures without the skin.
names() {
  find "$folder" -name "*-$1.png" -size +0 -printf '%f\n' | sed "s/-$1\.png$//" | LC_ALL=C sort
}
for skin in Dark Paper; do
  # A new page, dialog or scene needs a line in the list.
  diff tools/testing/gallery-pictures.txt <(names "$skin") || fail "other pictures than listed in the skin $skin"
  # A control that does not show its state looks as it does at rest or in another state.
  equal=$(cd "$folder" && sha256sum State-*-"$skin.png" | sort | uniq -w64 -D | cut -c67-)
  [ -z "$equal" ] || fail "these states look the same:" $equal
done
if timeout 60 "$@" --screenshots "$folder/no/such/folder" 2>/dev/null; then
  fail "no error for a folder that is not there"
fi
