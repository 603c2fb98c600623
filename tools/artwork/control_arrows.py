#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the arrows of the spinner and of the combo box and writes them to NolvexLibWx/resources: as the words that are
compiled into the library, and side by side and enlarged as ControlArrows.png, which shows them to developers."""

import pathlib
import struct
import sys
import zlib

import words

RESOURCES = pathlib.Path(__file__).resolve().parents[2] / "NolvexLibWx" / "resources"

SPINNER_SIZE = (11, 9)
COMBO_SIZE = (17, 41)

# The arrows of the spinner have the border of the other controls. The border is highlighted under the mouse.
FRAME = (54, 54, 54)
EDGES = {"NORMAL": (37, 37, 37), "HOVER": (0, 114, 188), "PRESSED": (37, 37, 37)}
FACES = {"NORMAL": (60, 60, 60), "HOVER": (66, 66, 66), "PRESSED": (28, 28, 28)}
ARROWS = {"NORMAL": (200, 200, 200), "HOVER": (255, 255, 255), "PRESSED": (0, 114, 188)}
COMBO_ARROWS = {"NORMAL": (200, 200, 200), "PRESSED": (0, 114, 188)}


def is_in_triangle(column, row, centre, height, up):
    """The triangle has sharp edges: 1 pixel at its tip, then 2 more in each row."""
    from_centre = row - centre[1] if up else centre[1] - row
    depth = from_centre + height // 2
    return 0 <= depth < height and abs(column - centre[0]) <= depth


def spinner_pixel(column, row, up, look):
    width, height = SPINNER_SIZE
    if column in (0, width - 1) or row in (0, height - 1):
        return FRAME
    if column in (1, width - 2) or row in (1, height - 2):
        return EDGES[look]
    return ARROWS[look] if is_in_triangle(column, row, (width // 2, height // 2), 3, up) else FACES[look]


def combo_pixel(column, row, look):
    """Everything but the triangle is transparent, so that the box shows around the triangle."""
    width, height = COMBO_SIZE
    alpha = 255 if is_in_triangle(column, row, (width // 2, height // 2), 5, False) else 0
    return (*COMBO_ARROWS[look], alpha)


def bitmap(size, pixels, bits, padding=0):
    """Returns a Windows bitmap file. Its rows go from the bottom up, and each row is a whole number of words."""
    width, height = size
    rows = b""
    for row in reversed(range(height)):
        line = b"".join(bytes((p[2], p[1], p[0], *p[3:])) for p in pixels[row])
        rows += line + bytes(-len(line) % 4)
    rows += bytes(padding)
    header = struct.pack("<2sIHHI", b"BM", 54 + len(rows), 0, 0, 54)
    header += struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, len(rows), 2835, 2835, 0, 0)
    return header + rows


def spinner_pixels(up, look):
    width, height = SPINNER_SIZE
    return [[spinner_pixel(column, row, up, look) for column in range(width)] for row in range(height)]


def combo_pixels(look):
    width, height = COMBO_SIZE
    return [[combo_pixel(column, row, look) for column in range(width)] for row in range(height)]


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def overview(pictures, scale=8, gap=16, ground=(45, 45, 45)):
    """Returns a PNG file with all pictures side by side. Each of their pixels is a square of `scale` pixels."""
    width = gap + sum(len(p[0]) * scale + gap for p in pictures)
    height = max(len(p) for p in pictures) * scale + 2 * gap
    rows = [[ground] * width for _ in range(height)]
    left = gap
    for picture in pictures:
        for y in range(len(picture) * scale):
            for x in range(len(picture[0]) * scale):
                *colour, alpha = (*picture[y // scale][x // scale], 255)[:4]
                if alpha:
                    rows[gap + y][left + x] = colour
        left += len(picture[0]) * scale + gap
    body = b"".join(b"\0" + b"".join(bytes(p) for p in row) for row in rows)
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    compressed = zlib.compress(body, 9)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", compressed) + chunk(b"IEND", b"")


def array(name, files):
    size = len(files[0][1])
    lines = [f"const int Resources::{name}_SIZE = {size};", "", "// clang-format off"]
    if len(files) == 1:
        lines += [f"const unsigned Resources::{name}[] = {{", *words.lines(files[0][1]), "};"]
    else:
        count = len(words.padded(files[0][1])) // 4
        lines += [f"const unsigned Resources::{name}[{len(files)}][{count}] = {{"]
        for comment, data in files:
            assert len(data) == size
            lines += [f"    {{ // {comment}", *words.lines(data, "        "), "    },"]
        lines += ["};"]
    return [*lines, "// clang-format on", ""]


def main():
    looks = ("NORMAL", "HOVER", "PRESSED")
    spinner = [
        (f"{look.lower()}, {name}", spinner_pixels(name == "up", look)) for look in looks for name in ("up", "down")
    ]
    spinner_files = [(comment, bitmap(SPINNER_SIZE, pixels, 24)) for comment, pixels in spinner]
    combo = [combo_pixels("NORMAL"), combo_pixels("PRESSED")]
    body = array("SPINNER_ARROWS", spinner_files)
    body += array("COMBO_BOX_ARROW", [("", bitmap(COMBO_SIZE, combo[0], 32, 2))])
    body += array("COMBO_BOX_PRESSED_ARROW", [("", bitmap(COMBO_SIZE, combo[1], 32))])
    text = words.unit("control_arrows.py", "ControlArrows.h", body[:-1])
    (RESOURCES / "ControlArrows.cpp").write_text(text, encoding="ascii", newline="\n")
    (RESOURCES / "ControlArrows.png").write_bytes(overview([pixels for _, pixels in spinner] + combo))


if __name__ == "__main__":
    sys.exit(main())
