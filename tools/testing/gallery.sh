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

pages=$(grep -lE '^const Page ' apps/gallery/pages/*.cpp | wc -l)
for skin in Dark Paper; do
  pictures=$(find "$folder" -name "*-$skin.png" -not -name '*dialog-*' -not -name 'State-*' -size +4k | wc -l)
  [ "$pictures" -eq "$pages" ] || fail "$pictures pictures of pages in the skin $skin, $pages expected"
  for kind in Plain Error Warning Information Question Success Own-buttons Other-scripts; do
    [ -n "$(find "$folder" -name "Message-dialog-$kind-$skin.png" -size +1k)" ] ||
      fail "no picture of the dialog $kind in the skin $skin"
  done
  [ -n "$(find "$folder" -name "Colour-dialog-$skin.png" -size +1k)" ] || fail "no picture of the colour dialog"

  for state in Buttons-{hovered,pressed,toggled-by-a-click} Drop-down-buttons-{hovered,open} \
    Check-boxes-checked-and-focused-by-a-click Collapsible-panels-{unfolded-by-a-click,folded-by-a-click} \
    Text-buttons-{hovered,visited-hovered} Spinners-{arrow-hovered,arrow-pressed,dragged,edited} \
    Combo-boxes-{hovered,open} Text-fields-{focused,selected} Text-areas-selected-by-dragging Tooltips-short \
    Colour-picker-buttons-colour-dragged-to-another-swatch; do
    [ -s "$folder/State-$state-$skin.png" ] || fail "no picture of the state $state in the skin $skin"
  done
  # A control that does not show its state looks as it does at rest or in another state.
  equal=$(cd "$folder" && sha256sum State-*-"$skin.png" | sort | uniq -w64 -D | cut -c67-)
  [ -z "$equal" ] || fail "these states look the same:" $equal
done
names() {
  find "$folder" -name "*-$1.png" -printf '%f\n' | sed "s/-$1\.png$//" | sort
}
diff <(names Dark) <(names Paper) || fail "not the same pictures in both skins"

if timeout 60 "$@" --screenshots "$folder/no/such/folder" 2>/dev/null; then
  fail "no error for a folder that is not there"
fi
