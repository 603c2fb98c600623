#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# gallery.sh COMMAND...: runs the gallery, which writes a picture of every page and every dialog in every skin, and checks
# the pictures.
set -euo pipefail
cd "$(dirname "$0")/../.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

timeout 120 "$@" --screenshots "$folder"
pages=$(grep -lE '^const Page ' apps/gallery/pages/*.cpp | wc -l)
for skin in Dark Paper; do
  pictures=$(find "$folder" -name "*-$skin.png" -not -name '*dialog-*' -not -name '*-window-*' -size +4k | wc -l)
  if [ "$pictures" -ne "$pages" ]; then
    echo "gallery: $pictures pictures of pages in the skin $skin, $pages expected"
    exit 1
  fi
  for kind in bright warning; do
    if [ -z "$(find "$folder" -name "Probe-window-$kind-$skin.png" -size +1k)" ]; then
      echo "gallery: no picture of the pixel probe ($kind) in the skin $skin"
      exit 1
    fi
  done
  for kind in Plain Error Warning Information Question Success Own-buttons Other-scripts; do
    if [ -z "$(find "$folder" -name "Message-dialog-$kind-$skin.png" -size +1k)" ]; then
      echo "gallery: no picture of the dialog $kind in the skin $skin"
      exit 1
    fi
  done
done
if timeout 60 "$@" --screenshots "$folder/no/such/folder" 2>/dev/null; then
  echo "gallery: no error for a folder that is not there"
  exit 1
fi
