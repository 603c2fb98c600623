#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the pictures of this folder, described in README.md. The JPEG needs ImageMagick's convert."""

import hashlib
import pathlib
import struct
import subprocess
import zlib

FOLDER = pathlib.Path(__file__).resolve().parent
WIDTH, HEIGHT = 16, 10


def rgb(x, y):
    return (16 * x, 25 * y % 256, 3 * x * y % 256)


def alpha(x):
    return 255 - 16 * x


def grey16(x, y):
    return 4096 * x + 400 * y


def floats(x, y):
    if (x, y) == (3, 2):
        return (float("nan"), y / 8, (x - y) / 2)
    if (x, y) == (5, 4):
        return (x / 4, float("inf"), (x - y) / 2)
    return (x / 4, y / 8, (x - y) / 2)


def rows(pixel, order=range(HEIGHT)):
    """A bytes object a row, of what pixel(x, y) returns for each x."""
    return [b"".join(bytes(pixel(x, y)) for x in range(WIDTH)) for y in order]


def png_chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def png(width, height, depth, colour_type, lines):
    header = struct.pack(">IIBBBBB", width, height, depth, colour_type, 0, 0, 0)
    data = zlib.compress(b"".join(b"\0" + line for line in lines), 9)
    chunks = png_chunk(b"IHDR", header) + png_chunk(b"IDAT", data) + png_chunk(b"IEND", b"")
    return b"\x89PNG\r\n\x1a\n" + chunks


def bmp(width, height, data):
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    return b"BM" + struct.pack("<IHHI", 54 + len(data), 0, 0, 54) + info + data


def bgr_from_below():
    return b"".join(rows(lambda x, y: reversed(rgb(x, y)), reversed(range(HEIGHT))))


def gif():
    """Each pixel has its own colour, and each code is 9 bits long: the table never grows past 512 codes."""
    palette = b"".join(rows(rgb)).ljust(768, b"\0")
    codes = [256, *range(WIDTH * HEIGHT), 257]
    bits = sum(code << (9 * place) for place, code in enumerate(codes))
    data = bits.to_bytes((9 * len(codes) + 7) // 8, "little")
    blocks = b"".join(bytes([len(data[i : i + 255])]) + data[i : i + 255] for i in range(0, len(data), 255))
    screen = struct.pack("<HHBBB", WIDTH, HEIGHT, 0xF7, 0, 0)
    image = b"," + struct.pack("<HHHHB", 0, 0, WIDTH, HEIGHT, 0)
    return b"GIF89a" + screen + palette + image + b"\x08" + blocks + b"\0;"


def tiff():
    short, long, rational = 3, 4, 5
    entries_offset, count = 8, 13
    extra = entries_offset + 2 + 12 * count + 4
    data = b"".join(rows(rgb))
    entries = [
        (256, short, 1, WIDTH), (257, short, 1, HEIGHT), (258, short, 3, extra), (259, short, 1, 1),
        (262, short, 1, 2), (273, long, 1, extra + 22), (274, short, 1, 1), (277, short, 1, 3),
        (278, short, 1, HEIGHT), (279, long, 1, len(data)), (282, rational, 1, extra + 6),
        (283, rational, 1, extra + 14), (296, short, 1, 2),
    ]
    folder = struct.pack("<H", count) + b"".join(struct.pack("<HHII", *entry) for entry in entries) + bytes(4)
    values = struct.pack("<HHHIIII", 8, 8, 8, 72, 1, 72, 1)
    return b"II*\0" + struct.pack("<I", entries_offset) + folder + values + data


def tga():
    return struct.pack("<BBBHHBHHHHBB", 0, 0, 2, 0, 0, 0, 0, 0, WIDTH, HEIGHT, 24, 0) + bgr_from_below()


def ico():
    """16 x 16 with alpha; below row 9 the formulas go on."""
    info = struct.pack("<IiiHHIIiiII", 40, 16, 32, 1, 32, 0, 16 * 16 * 4, 0, 0, 0, 0)
    data = b"".join(rows(lambda x, y: (*reversed(rgb(x, y)), alpha(x)), reversed(range(16))))
    mask = bytes(4 * 16)
    size = len(info) + len(data) + len(mask)
    return struct.pack("<HHHBBBBHHII", 0, 1, 1, 16, 16, 0, 0, 1, 32, size, 22) + info + data + mask


def pfm():
    lines = rows(lambda x, y: struct.pack("<3f", *floats(x, y)), reversed(range(HEIGHT)))
    return b"PF\n%d %d\n-1.0\n" % (WIDTH, HEIGHT) + b"".join(lines)


def jpeg(source):
    command = ["convert", source, "-strip", "-sampling-factor", "1x1", "-quality", "95", "jpg:-"]
    return subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout


def noise(length):
    return b"".join(hashlib.sha256(bytes([block])).digest() for block in range(length // 32))


def write(name, content):
    (FOLDER / name).write_bytes(content)
    return content


def write_good():
    png_bytes = write("pattern.png", png(WIDTH, HEIGHT, 8, 2, rows(rgb)))
    write("pattern-alpha.png", png(WIDTH, HEIGHT, 8, 6, rows(lambda x, y: (*rgb(x, y), alpha(x)))))
    write("grey16.png", png(WIDTH, HEIGHT, 16, 0, rows(lambda x, y: struct.pack(">H", grey16(x, y)))))
    write("pattern.bmp", bmp(WIDTH, HEIGHT, bgr_from_below()))
    write("pattern.gif", gif())
    write("pattern.tiff", tiff())
    write("pattern.tga", tga())
    write("pattern.ico", ico())
    jpeg_bytes = write("pattern.jpg", jpeg(FOLDER / "pattern.png"))
    return png_bytes, jpeg_bytes, write("pattern.pfm", pfm())


def write_bad(png_bytes, jpeg_bytes, pfm_bytes):
    write("truncated.png", png_bytes[: len(png_bytes) // 2])
    write("truncated.jpg", jpeg_bytes[: len(jpeg_bytes) // 2])
    write("truncated.pfm", pfm_bytes[: len(pfm_bytes) // 2])
    write("zero-size.bmp", bmp(0, HEIGHT, b""))
    write("huge-claim.bmp", bmp(46341, 46341, bytes(100)))
    write("huge-claim.png", png(2**31 - 1, 2**31 - 1, 8, 2, [bytes(48)]))
    write("huge-claim.pfm", b"PF\n2000000000 2000000000\n-1.0\n")
    write("negative.pfm", pfm_bytes.replace(b"\n16 ", b"\n-16 ", 1))
    write("noimage.txt", b"These lines are text.\nNo reader of pictures takes them for one.\n")
    write("empty.png", b"")
    write("random.jpg", noise(512))


if __name__ == "__main__":
    write_bad(*write_good())
