#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the pictures of the folder formats/, described in README.md: the pattern of make_fixtures.py in the kinds
that each format has. Compressed TIFF, JPEG and interlaced PNG files need ImageMagick's convert."""

import struct
import subprocess

from make_fixtures import FOLDER, HEIGHT, WIDTH, alpha, bgr_from_below, png, rgb, rows

TARGET = FOLDER / "formats"
PALETTE = [rgb(x, y) for y in range(HEIGHT) for x in range(WIDTH)]


def index(x, y):
    return y * WIDTH + x


def padded(row):
    return row + bytes(-len(row) % 4)


def dib_header(bits, compression=0, colours=0, height=HEIGHT, data_size=0):
    return struct.pack("<IiiHHIIiiII", 40, WIDTH, height, 1, bits, compression, data_size, 2835, 2835, colours, 0)


def bmp_file(info, data):
    start = 14 + len(info)
    return b"BM" + struct.pack("<IHHI", start + len(data), 0, 0, start) + info + data


def bmp_palette(colours):
    return b"".join(bytes((blue, green, red, 0)) for red, green, blue in colours)


def from_below(pixel):
    return b"".join(padded(row) for row in rows(pixel, reversed(range(HEIGHT))))


def rle8_row(y):
    """A literal of an odd length, runs of one pixel, a literal of an even length."""
    row = [index(x, y) for x in range(WIDTH)]
    return bytes([0, 5, *row[:5], 0]) + b"".join(bytes([1, i]) for i in row[5:10]) + bytes([0, 6, *row[10:]])


def rle8():
    data = b"".join(rle8_row(y) + b"\0\0" for y in reversed(range(HEIGHT)))[:-2] + b"\0\1"
    return bmp_file(dib_header(8, 1, len(PALETTE)) + bmp_palette(PALETTE), data)


def rle4():
    """Sixteen shades of red from left to right: a run of two alternating colours, a literal of 14 pixels."""
    row = bytes([2, 0x01, 0, 14, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0])
    palette = bmp_palette([(17 * i, 0, 0) for i in range(16)])
    return bmp_file(dib_header(4, 2, 16) + palette, (row + b"\0\0") * HEIGHT + b"\0\1")


def fields565(x, y):
    red, green, blue = rgb(x, y)
    return struct.pack("<H", red >> 3 << 11 | green >> 2 << 5 | blue >> 3)


def rgb555(x, y):
    red, green, blue = rgb(x, y)
    return struct.pack("<H", red >> 3 << 10 | green >> 3 << 5 | blue >> 3)


def bmp_with_alpha():
    header = struct.pack("<IiiHHIIiiII", 124, WIDTH, HEIGHT, 1, 32, 3, 0, 2835, 2835, 0, 0)
    masks = struct.pack("<IIII", 0xFF000000, 0xFF0000, 0xFF00, 0xFF)
    info = (header + masks).ljust(124, b"\0")
    return bmp_file(info, from_below(lambda x, y: (alpha(x), *reversed(rgb(x, y)))))


def bmps():
    palette = bmp_palette(PALETTE)
    yield "palette.bmp", bmp_file(dib_header(8, 0, 160) + palette, from_below(lambda x, y: [index(x, y)]))
    yield "runs8.bmp", rle8()
    yield "runs4.bmp", rle4()
    masks = struct.pack("<III", 0xF800, 0x7E0, 0x1F)
    yield "fields565.bmp", bmp_file(dib_header(16, 3) + masks, from_below(fields565))
    yield "rgb555.bmp", bmp_file(dib_header(16), from_below(rgb555))
    yield "alpha.bmp", bmp_with_alpha()
    top_down = b"".join(rows(lambda x, y: reversed(rgb(x, y))))
    yield "top-down.bmp", bmp_file(dib_header(24, height=-HEIGHT), top_down)
    yield "core.bmp", bmp_file(struct.pack("<IhhHH", 12, WIDTH, HEIGHT, 1, 24), bgr_from_below())


def gif_frame(order, interlaced=False, local=False, control=b""):
    """Each code is 9 bits long, after a clear code every 250 pixels at most."""
    codes = [256, *(index(x, y) for y in order for x in range(WIDTH)), 257]
    bits = sum(code << (9 * place) for place, code in enumerate(codes))
    data = bits.to_bytes((9 * len(codes) + 7) // 8, "little")
    blocks = b"".join(bytes([len(data[i : i + 100])]) + data[i : i + 100] for i in range(0, len(data), 100))
    flags = (0x40 if interlaced else 0) | (0x87 if local else 0)
    palette = gif_palette() if local else b""
    return control + b"," + struct.pack("<HHHHB", 0, 0, WIDTH, HEIGHT, flags) + palette + b"\x08" + blocks + b"\0"


def gif_palette():
    return b"".join(bytes(colour) for colour in PALETTE).ljust(768, b"\0")


def gif(frames, palette=True):
    screen = struct.pack("<HHBBB", WIDTH, HEIGHT, 0xF7 if palette else 0, 0, 0)
    return b"GIF89a" + screen + (gif_palette() if palette else b"") + b"".join(frames) + b";"


def gifs():
    order = [*range(0, HEIGHT, 8), *range(4, HEIGHT, 8), *range(2, HEIGHT, 4), *range(1, HEIGHT, 2)]
    yield "interlaced.gif", gif([gif_frame(order, interlaced=True)])
    yield "local-palette.gif", gif([gif_frame(range(HEIGHT), local=True)], palette=False)
    control = b"!\xF9\x04\x01\x0A\x00\xFF\x00"
    comment = b"!\xFE\x05hello\x00"
    repeat = b"!\xFF\x0BNETSCAPE2.0\x03\x01\x00\x00\x00"
    frames = [comment + repeat, gif_frame(range(HEIGHT), control=control), gif_frame(order, interlaced=True)]
    yield "animated.gif", gif(frames)


def tga_file(kind, bits, data, palette=b"", colours=0, origin=(0, 0), flags=0):
    header = struct.pack("<BBBHHBHHHHBB", 5, 1 if palette else 0, kind, 0, colours, 24 if palette else 0, *origin,
                         WIDTH, HEIGHT, bits, flags)
    return header + b"named" + palette + data


def tga_runs(pixels, size):
    """A raw packet of 7 pixels, single runs for the others of each row."""
    rows_of_packets = []
    for start in range(0, len(pixels), WIDTH * size):
        row = pixels[start : start + WIDTH * size]
        singles = (b"\x80" + row[i : i + size] for i in range(7 * size, len(row), size))
        rows_of_packets.append(b"\x06" + row[: 7 * size] + b"".join(singles))
    return b"".join(rows_of_packets)


def tgas():
    colours = bgr_from_below()
    indices = b"".join(rows(lambda x, y: [index(x, y)], reversed(range(HEIGHT))))
    palette = b"".join(bytes(reversed(colour)) for colour in PALETTE)
    yield "runs.tga", tga_file(10, 24, tga_runs(colours, 3))
    yield "palette.tga", tga_file(1, 8, indices, palette, len(PALETTE))
    yield "palette-runs.tga", tga_file(9, 8, tga_runs(indices, 1), palette, len(PALETTE))
    with_alpha = b"".join(rows(lambda x, y: (*reversed(rgb(x, y)), alpha(x)), reversed(range(HEIGHT))))
    yield "alpha.tga", tga_file(2, 32, with_alpha, flags=8)
    yield "origin.tga", tga_file(2, 24, colours, origin=(3, 10))
    leftwards = b"".join(rows(lambda x, y: reversed(rgb(WIDTH - 1 - x, y)), reversed(range(HEIGHT))))
    yield "leftwards.tga", tga_file(2, 24, leftwards, flags=0x10)
    top_down = b"".join(rows(lambda x, y: reversed(rgb(WIDTH - 1 - x, y))))
    yield "leftwards-top-down.tga", tga_file(2, 24, top_down, flags=0x30)
    yield "grey-runs.tga", tga_file(11, 8, tga_runs(indices, 1))
    yield "rgb555.tga", tga_file(2, 16, b"".join(rows(rgb555, reversed(range(HEIGHT)))), flags=1)


def tiff(pixel, width, height, samples, photometric=2, orientation=1, extra_samples=None, palette=None, order="<"):
    """One uncompressed strip of 8-bit samples."""
    short, long = 3, 4
    data = b"".join(bytes(pixel(x, y)) for y in range(height) for x in range(width))
    values = struct.pack(order + "H" * samples, *[8] * samples)
    entries = [(256, short, 1, width), (257, short, 1, height), (258, short, samples, None), (259, short, 1, 1),
               (262, short, 1, photometric), (273, long, 1, None), (274, short, 1, orientation),
               (277, short, 1, samples), (278, short, 1, height), (279, long, 1, len(data))]
    if palette:
        entries.append((320, short, 768, None))
    if extra_samples is not None:
        entries.append((338, short, 1, extra_samples))
    values_start = 8 + 2 + 12 * len(entries) + 4
    colours = struct.pack(order + "768H", *(palette or [0] * 768)) if palette else b""
    places = {258: values_start, 320: values_start + len(values), 273: values_start + len(values) + len(colours)}
    folder = struct.pack(order + "H", len(entries))
    for tag, kind, count, value in entries:
        value = places[tag] if value is None else value
        small = kind == short and count == 1
        if tag == 258 and samples <= 2:
            folder += struct.pack(order + "HHI", tag, kind, count) + values.ljust(4, b"\0")
        elif small:
            folder += struct.pack(order + "HHIHH", tag, kind, count, value, 0)
        else:
            folder += struct.pack(order + "HHII", tag, kind, count, value)
    start = (b"II*\0" if order == "<" else b"MM\0*") + struct.pack(order + "I", 8)
    return start + folder + bytes(4) + values + colours + data


def stored(orientation):
    """The size of the stored picture and the place in the pattern that its column and row show."""
    places = {
        1: lambda c, r: (c, r), 2: lambda c, r: (WIDTH - 1 - c, r), 3: lambda c, r: (WIDTH - 1 - c, HEIGHT - 1 - r),
        4: lambda c, r: (c, HEIGHT - 1 - r), 5: lambda c, r: (r, c), 6: lambda c, r: (WIDTH - 1 - r, c),
        7: lambda c, r: (WIDTH - 1 - r, HEIGHT - 1 - c), 8: lambda c, r: (r, HEIGHT - 1 - c),
    }
    size = (WIDTH, HEIGHT) if orientation < 5 else (HEIGHT, WIDTH)
    return size, places[orientation]


def tiffs():
    for orientation in range(1, 9):
        size, place = stored(orientation)
        order = "<" if orientation % 2 else ">"
        yield f"orientation-{orientation}.tiff", tiff(lambda c, r: rgb(*place(c, r)), *size, 3,
                                                      orientation=orientation, order=order)
    size, place = stored(6)
    yield "grey-alpha-orientation-6.tiff", tiff(lambda c, r: (16 * place(c, r)[0], alpha(place(c, r)[0])), *size, 2,
                                                photometric=1, orientation=6, extra_samples=2)
    palette = [257 * colour[channel] for channel in range(3) for colour in PALETTE + [(0, 0, 0)] * 96]
    yield "palette.tiff", tiff(lambda x, y: [index(x, y)], WIDTH, HEIGHT, 1, photometric=3, palette=palette)
    yield "palette-alpha.tiff", tiff(lambda x, y: (index(x, y), alpha(x)), WIDTH, HEIGHT, 2, photometric=3,
                                     palette=palette, extra_samples=2)


def ico_file(pictures):
    start = 6 + 16 * len(pictures)
    directory = struct.pack("<HHH", 0, 1, len(pictures))
    for picture in pictures:
        directory += struct.pack("<BBBBHHII", WIDTH, HEIGHT, 0, 0, 1, 32, len(picture), start)
        start += len(picture)
    return directory + b"".join(pictures)


def icos():
    mask = bytes(4 * HEIGHT)
    palette = (dib_header(8, 0, 160, 2 * HEIGHT) + bmp_palette(PALETTE) + from_below(lambda x, y: [index(x, y)]) + mask)
    plain = dib_header(24, height=2 * HEIGHT) + bgr_from_below() + mask
    whole_png = png(WIDTH, HEIGHT, 8, 2, rows(rgb))
    yield "palette.ico", ico_file([palette])
    yield "png.ico", ico_file([whole_png])
    yield "several.ico", ico_file([palette, whole_png, plain])


def converted():
    source = str(FOLDER / "pattern.png")
    for name, options in {
        "interlaced.png": ["-interlace", "PNG"],
        "palette.png": ["-define", "png:color-type=3"],
        "sixteen.png": ["-define", "png:bit-depth=16"],
        "lzw.tiff": ["-compress", "LZW"],
        "deflate.tiff": ["-compress", "Zip"],
        "packbits.tiff": ["-compress", "RLE"],
        "tiled.tiff": ["-define", "tiff:tile-geometry=16x16", "-compress", "LZW"],
        "planar.tiff": ["-interlace", "Plane", "-compress", "None"],
        "fax.tiff": ["-threshold", "50%", "-compress", "Group4"],
        "jpeg.tiff": ["-compress", "JPEG"],
        "progressive.jpg": ["-interlace", "JPEG", "-quality", "95"],
        "grey.jpg": ["-colorspace", "Gray"],
        "cmyk.jpg": ["-colorspace", "CMYK"],
    }.items():
        subprocess.run(["convert", source, "-strip", *options, str(TARGET / name)], check=True)


if __name__ == "__main__":
    TARGET.mkdir(exist_ok=True)
    for group in (bmps, gifs, tgas, tiffs, icos):
        for name, content in group():
            (TARGET / name).write_bytes(content)
    converted()
