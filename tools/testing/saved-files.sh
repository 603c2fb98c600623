#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# saved-files.sh FOLDER [WRAPPER]: has pictures of each kind saved as the viewer saves them (NolvexPictureSaver), and asks
# oiiotool, a program that shares no code with the viewer's writers, what the files hold. Has pictures that oiiotool makes
# read, and compares their pixels. WRAPPER runs Windows programs.
set -euo pipefail
cd "$(dirname "$0")/../.."
(. tools/testing/common.sh && need_packages openimageio-tools)
programs=$(realpath "$1")
wrapper=${2:+$(realpath "$2")}
export LC_ALL=C.UTF-8
suffix=
[ -e "$programs/NolvexPictureSaver" ] || suffix=.exe
saver=(timeout 120 ${wrapper:+"$wrapper"} "$programs/NolvexPictureSaver$suffix")
if [ -z "$suffix" ]; then
  unset DISPLAY WAYLAND_DISPLAY
fi
folder=$(mktemp -d)
failures=0
trap 'rm -rf "$folder"' EXIT
cd "$folder"

complain() {
  echo "saved-files: $*"
  failures=$((failures + 1))
}

# save FROM TO COLOURS ALPHA
save() {
  "${saver[@]}" "$@" >output 2>&1 </dev/null || complain "$1 was not saved as $2: $(cat output)"
}

# holds FILE TEXT...: oiiotool tells these things of the file.
holds() {
  local file=$1 text
  shift
  oiiotool --info -v "$file" >information 2>&1 || true
  for text in "$@"; do
    grep -q -e "$text" information || complain "no \"$text\" in what oiiotool tells of $file: $(cat information)"
  done
}

# holds_not FILE TEXT: oiiotool does not tell this of the file.
holds_not() {
  oiiotool --info -v "$1" >information 2>&1 || true
  ! grep -q -e "$2" information || complain "\"$2\" in what oiiotool tells of $1: $(cat information)"
}

# same FILE OTHER TOLERANCE: no value differs by more.
same() {
  oiiotool "$1" "$2" --fail "$3" --warn "$3" --diff >difference 2>&1 ||
    complain "$1 and $2 are not the same: $(cat difference)"
}

# Light in floats, whose colours are multiplied by alpha. Alpha is 0.25 to 1. A pixel without alpha gives light.
make_sources() {
  local light='fill:topleft=0.02,0.1,0.24,0.25:topright=0.2,0.25,0.05,0.25:bottomleft=0.9,0.1,0.4,1:bottomright=0.1,1,0.3,1'
  oiiotool --pattern "$light" 60x40 4 --chnames R,G,B,A -d float -o light.exr
  oiiotool light.exr --fill:color=0.5,0.25,0.125,0 1x1+7+9 -o glow.exr
  oiiotool light.exr --ch R,G,B -o opaque.exr
  oiiotool light.exr --unpremult --powc 0.4545454545,0.4545454545,0.4545454545,1 --attrib oiio:ColorSpace sRGB \
    -o encoded.exr
  oiiotool light.exr --crop 40x20-5+7 --fullsize 100x50-1+2 --attrib owner 'the studio' --attrib pixelAspectRatio 2.0 \
    --compression piz --tile 16 16 -o window.exr
}

# What an encoded file of straight colours must hold, as oiiotool reads it when it leaves the colours as they are.
encoded_is() {
  oiiotool --iconfig oiio:UnassociatedAlpha 1 "$1" -d float --attrib oiio:ColorSpace '' -o read.exr
  same encoded.exr read.exr "$2"
}

png_is_what_was_chosen() {
  save light.exr eight.png uint8 alpha
  holds eight.png '60 x   40, 4 channel, uint8 png' 'oiio:ColorSpace: "sRGB"'
  encoded_is eight.png 0.003
  save light.exr sixteen.png uint16 alpha
  holds sixteen.png '60 x   40, 4 channel, uint16 png'
  encoded_is sixteen.png 0.0001
  save light.exr opaque.png uint8 opaque
  holds opaque.png '60 x   40, 3 channel, uint8 png'
  save eight.png again.png uint8 alpha
  same eight.png again.png 0
}

tiff_is_what_was_chosen() {
  local compression='compression: "zip"' straight='UnassociatedAlpha: 1'
  save light.exr eight.tiff uint8 alpha
  holds eight.tiff '4 channel, uint8 tiff' "$straight" "$compression"
  encoded_is eight.tiff 0.003
  save light.exr sixteen.tiff uint16 alpha
  holds sixteen.tiff '4 channel, uint16 tiff' "$straight" "$compression"
  encoded_is sixteen.tiff 0.0001
  save glow.exr half.tiff half alpha
  holds half.tiff '4 channel, half tiff' "$compression"
  holds_not half.tiff "$straight"
  same glow.exr half.tiff 0.0005
  save glow.exr float.tiff float alpha
  holds float.tiff '4 channel, float tiff' "$compression"
  holds_not float.tiff "$straight"
  same glow.exr float.tiff 0
  save float.tiff back.exr float alpha
  same glow.exr back.exr 0
  save eight.png straight.tiff float alpha
  holds straight.tiff '4 channel, float tiff' "$straight"
  save light.exr opaque.tiff float opaque
  holds opaque.tiff '3 channel, float tiff'
  same opaque.exr opaque.tiff 0
}

exr_is_what_was_chosen() {
  save glow.exr half.exr half alpha
  holds half.exr '4 channel, half openexr' 'compression: "zip"' 'channel list: R, G, B, A'
  same glow.exr half.exr 0.0005
  save glow.exr float.exr float alpha
  holds float.exr '4 channel, float openexr' 'compression: "zip"'
  same glow.exr float.exr 0
  save sixteen.png multiplied.exr float alpha
  same light.exr multiplied.exr 0.0002
  save light.exr none.exr float opaque
  holds none.exr '3 channel, float openexr'
  same opaque.exr none.exr 0
  save window.exr framed.exr float alpha
  holds framed.exr '40 x   20, 4 channel, float openexr' 'pixel data origin: x=-5, y=7' 'full/display size: 100 x 50' \
    'full/display origin: -1, 2' 'Copyright: "the studio"' 'PixelAspectRatio: 2' 'compression: "zip"'
  holds_not framed.exr 'tile size'
  same window.exr framed.exr 0
}

eight_bits_are_what_was_chosen() {
  local extension
  for extension in tga bmp jpg; do
    save eight.png "saved.$extension" uint8 alpha
  done
  holds saved.tga '4 channel, uint8 targa'
  oiiotool --iconfig oiio:UnassociatedAlpha 1 eight.png -o straight8.exr
  oiiotool --iconfig oiio:UnassociatedAlpha 1 saved.tga -o targa8.exr
  same straight8.exr targa8.exr 0.0001
  holds saved.bmp '3 channel, uint8 bmp'
  holds saved.jpg '3 channel, uint8 jpeg'
}

# read_is_right FILE TOLERANCE [ALPHA]: the pixels that the viewer reads are those that oiiotool reads.
read_is_right() {
  save "$1" read-back.exr float "${3:-alpha}"
  same "$1" read-back.exr "$2"
}

files_of_others_are_read() {
  oiiotool light.exr --tile 16 16 --compression zips -d half -o tiled.exr
  read_is_right tiled.exr 0
  oiiotool opaque.exr light.exr --siappend -o parts.exr
  save parts.exr part.exr float opaque
  same opaque.exr part.exr 0
  read_is_right window.exr 0
  local kind
  for kind in half float; do
    oiiotool glow.exr -d "$kind" --compression lzw -o "associated-$kind.tiff"
    read_is_right "associated-$kind.tiff" 0
    oiiotool glow.exr -d "$kind" --attrib oiio:UnassociatedAlpha 1 --tile 16 16 -o "straight-$kind.tiff"
    holds "straight-$kind.tiff" 'UnassociatedAlpha: 1'
    # By itself, oiiotool multiplies the colours of tiles twice.
    oiiotool --iconfig oiio:UnassociatedAlpha 1 "straight-$kind.tiff" --premult -d float -o premultiplied.exr
    save "straight-$kind.tiff" read-back.exr float alpha
    same premultiplied.exr read-back.exr 0.0000001
  done
  oiiotool opaque.exr --tocolorspace sRGB -d uint16 -o words.tiff
  save words.tiff words-back.png uint16 opaque
  same words.tiff words-back.png 0
  oiiotool opaque.exr --tocolorspace sRGB -d uint16 -o words.png
  save words.png words-back.tiff uint16 opaque
  same words.png words-back.tiff 0
  oiiotool opaque.exr -o radiance.hdr
  read_is_right radiance.hdr 0 opaque
  oiiotool opaque.exr --tocolorspace sRGB -d uint8 -o bytes.ppm
  save bytes.ppm bytes-back.png uint8 opaque
  same bytes.ppm bytes-back.png 0
}

# Reading a file that says how it is stored gives the picture turned so.
orientations_are_turned() {
  local turns=('' --flop --rotate180 --flip --transpose --rotate90 '--transpose --rotate180' --rotate270) place
  for place in "${!turns[@]}"; do
    local -a turn=()
    read -r -a turn <<<"${turns[$place]}"
    oiiotool opaque.exr --attrib Orientation $((place + 1)) -d float -o turned.tiff
    oiiotool opaque.exr "${turn[@]}" -o upright.exr
    save turned.tiff turned.exr float opaque
    same upright.exr turned.exr 0
    oiiotool opaque.exr --tocolorspace sRGB --attrib Orientation $((place + 1)) -d uint8 -o bytes.tiff
    oiiotool opaque.exr --tocolorspace sRGB "${turn[@]}" -d uint8 -o upright.png
    save bytes.tiff bytes.png uint8 opaque
    same upright.png bytes.png 0
  done
}

# Eight-bit files with each kind of alpha, of which oiiotool makes associated colours.
bytes_with_alpha_are_read() {
  oiiotool light.exr -d uint8 -o associated-bytes.tiff
  oiiotool light.exr -d uint8 --attrib oiio:UnassociatedAlpha 1 -o straight-bytes.tiff
  local kind
  for kind in associated straight; do
    save "$kind-bytes.tiff" "$kind-bytes.png" uint8 alpha
    oiiotool "$kind-bytes.tiff" --attrib oiio:ColorSpace '' -o multiplied.exr
    oiiotool "$kind-bytes.png" --attrib oiio:ColorSpace '' -o multiplied-png.exr
    same multiplied.exr multiplied-png.exr 0.008
  done
}

make_sources
png_is_what_was_chosen
tiff_is_what_was_chosen
exr_is_what_was_chosen
eight_bits_are_what_was_chosen
files_of_others_are_read
orientations_are_turned
bytes_with_alpha_are_read
[ "$failures" -eq 0 ] || exit 1
echo "saved-files: all files hold what was chosen"
