#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the application icon, a framed picture of a glass ball at dusk with a bright highlight, and writes it to
NolvexLibWx/resources: as ApplicationIcon.png, and as the words that are compiled into the library. Also writes the icons
of the viewer for desktops, one for each of their sizes, to apps/viewer/resources/desktop."""

import math
import pathlib
import struct
import zlib

import words

SIZE = 128  # of the drawing, whose coordinates are used below
SAMPLES = 4  # in each direction, for a pixel of that size
ROOT = pathlib.Path(__file__).resolve().parents[2]
RESOURCES = ROOT / "NolvexLibWx" / "resources"
DESKTOP_ICONS = ROOT / "apps" / "viewer" / "resources" / "desktop"
DESKTOP_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)

# Boxes are left, top, right, bottom, and the radius of the corners.
SHADOW = (9, 12, 119, 126, 19)
FRAME = (6, 4, 122, 120, 20)
FRAME_FACE = (7.5, 5.5, 120.5, 118.5, 18.5)
MAT = (16, 14, 112, 110, 11)
PICTURE = (18, 16, 110, 108, 9)
HORIZON = 77.0
BALL = (61.0, 63.0, 29.0)
SPARKLE = (80.5, 42.5)


def mix(a, b, part):
    part = min(1.0, max(0.0, part))
    return tuple(x + (y - x) * part for x, y in zip(a, b))


def gradient(stops, place):
    for (start, first), (end, second) in zip(stops, stops[1:]):
        if place <= end:
            return mix(first, second, (place - start) / (end - start))
    return stops[-1][1]


def distance_to_box(x, y, box):
    """Returns the distance to the box, which is below zero inside."""
    left, top, right, bottom, radius = box
    dx = abs(x - (left + right) / 2) - (right - left) / 2 + radius
    dy = abs(y - (top + bottom) / 2) - (bottom - top) / 2 + radius
    return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius


SKY = [(0.0, (38, 40, 104)), (0.4, (104, 62, 150)), (0.72, (222, 96, 128)), (1.0, (255, 190, 112))]
FLOOR = [(0.0, (150, 74, 116)), (0.25, (74, 44, 96)), (1.0, (24, 22, 54))]


def scenery(x, y):
    top, bottom = PICTURE[1], PICTURE[3]
    if y < HORIZON:
        colour = gradient(SKY, (y - top) / (HORIZON - top))
        glow = math.exp(-((x - 92) ** 2 + 1.6 * (y - 74) ** 2) / 500)
        return mix(colour, (255, 232, 176), 0.75 * glow)
    colour = gradient(FLOOR, (y - HORIZON) / (bottom - HORIZON))
    glow = math.exp(-((x - 92) ** 2) / 260 - (y - HORIZON) / 9)
    shade = math.exp(-((x - BALL[0]) ** 2 / 520 + (y - BALL[1] - BALL[2]) ** 2 / 26))
    return mix(mix(colour, (255, 206, 150), 0.7 * glow), (10, 8, 30), 0.75 * shade)


def ball(x, y):
    """Glass: the scenery upside down, dark towards the rim, with light caught at the edge and behind."""
    centre_x, centre_y, radius = BALL
    u, v = (x - centre_x) / radius, (y - centre_y) / radius
    outward = u * u + v * v
    bend = 0.75 + 0.85 * outward * outward
    seen = scenery(centre_x - 40 * u * bend, HORIZON - 5 - 34 * v * bend)
    colour = mix(seen, (40, 30, 92), 0.22 + 0.55 * outward**3)
    caustic = math.exp(-((u + 0.34) ** 2 + (v - 0.48) ** 2) / 0.075)
    colour = mix(colour, (255, 222, 170), 0.8 * caustic * (1 - outward))
    rim = max(0.0, outward - 0.78) / 0.22
    colour = mix(colour, (158, 196, 255), 0.85 * rim * rim * max(0.0, 0.5 - 0.55 * u - 0.6 * v))
    window = math.exp(-(((u + 0.36) / 0.30) ** 2 + ((v + 0.50) / 0.17) ** 2) ** 2)
    return mix(colour, (255, 255, 255), 0.62 * window)


def sparkle(x, y):
    dx, dy = abs(x - SPARKLE[0]), abs(y - SPARKLE[1])
    rays = math.exp(-dx / 5.5 - dy / 0.85) + math.exp(-dy / 5.5 - dx / 0.85)
    diagonals = math.exp(-(dx + dy) / 4.5 - abs(dx - dy) / 0.9)
    return min(1.0, 1.25 * rays + 0.45 * diagonals + 0.9 * math.exp(-(dx * dx + dy * dy) / 9))


def frame(x, y):
    light = (y - FRAME[1]) / (FRAME[3] - FRAME[1])
    if distance_to_box(x, y, FRAME_FACE) > 0:
        return mix((148, 158, 178), (20, 23, 30), light)
    if distance_to_box(x, y, MAT) < 0:
        return mix((12, 13, 18), (120, 128, 146), light)
    return mix((84, 93, 112), (34, 39, 50), light)


def picture(x, y):
    inside = math.hypot(x - BALL[0], y - BALL[1]) < BALL[2]
    colour = ball(x, y) if inside else scenery(x, y)
    return mix(colour, (255, 252, 240), sparkle(x, y))


def sample(x, y):
    """Red, green, blue, not multiplied by it alpha from 0 to 1."""
    if distance_to_box(x, y, PICTURE) < 0:
        return (*picture(x, y), 1.0)
    if distance_to_box(x, y, FRAME) < 0:
        return (*frame(x, y), 1.0)
    return (0, 0, 0, 0.42 * min(1.0, max(0.0, 0.5 - distance_to_box(x, y, SHADOW) / 7)) ** 1.5)


def pixel(column, row, size):
    # A pixel of a small icon covers more of the drawing.
    samples = max(SAMPLES, SAMPLES * SIZE // size)
    red = green = blue = alpha = 0.0
    for index in range(samples * samples):
        x = (column + (index % samples + 0.5) / samples) * SIZE / size
        y = (row + (index // samples + 0.5) / samples) * SIZE / size
        r, g, b, a = sample(x, y)
        red, green, blue, alpha = red + r * a, green + g * a, blue + b * a, alpha + a
    if alpha * 255 / samples**2 < 0.5:
        return (0, 0, 0, 0)
    return tuple(round(value) for value in (red / alpha, green / alpha, blue / alpha, 255 * alpha / samples**2))


def paeth(left, up, corner):
    estimate = left + up - corner
    return min((left, up, corner), key=lambda value: abs(estimate - value))


def filtered(row, previous):
    """Filters the row by that of PNG's five filters that gives the smallest numbers."""
    left, corner = bytes(4) + row, bytes(4) + previous
    predictions = (
        lambda i: 0,
        lambda i: left[i],
        lambda i: previous[i],
        lambda i: (left[i] + previous[i]) // 2,
        lambda i: paeth(left[i], previous[i], corner[i]),
    )
    lines = [
        bytes([kind]) + bytes((value - predict(i)) % 256 for i, value in enumerate(row))
        for kind, predict in enumerate(predictions)
    ]
    return min(lines, key=lambda line: sum(min(value, 256 - value) for value in line[1:]))


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(size):
    lines, previous = [], bytes(4 * size)
    for y in range(size):
        row = b"".join(bytes(pixel(x, y, size)) for x in range(size))
        lines.append(filtered(row, previous))
        previous = row
    header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    body = zlib.compress(b"".join(lines), 9)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", body) + chunk(b"IEND", b"")


def source(data):
    body = [
        f"const int Resources::APPLICATION_ICON_SIZE = {len(data)};",
        "",
        "// clang-format off",
        "const unsigned Resources::APPLICATION_ICON[] = {",
        *words.lines(data),
        "};",
        "// clang-format on",
    ]
    return words.unit("application_icon.py", "ApplicationIcon.h", body)


def main():
    data = png(SIZE)
    (RESOURCES / "ApplicationIcon.png").write_bytes(data)
    (RESOURCES / "ApplicationIcon.cpp").write_text(source(data), encoding="ascii", newline="\n")
    for size in DESKTOP_SIZES:
        (DESKTOP_ICONS / f"nolvex-viewer-{size}.png").write_bytes(png(size))


if __name__ == "__main__":
    main()
