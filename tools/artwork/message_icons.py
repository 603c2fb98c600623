#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Renders the vector drawings of the message dialogs' icons in NolvexLibWx/resources to PNG files beside them, and
writes the PNG files as the words that are compiled into the library. Needs rsvg-convert, of the package
librsvg2-bin."""

import pathlib
import subprocess
import sys

import words

RESOURCES = pathlib.Path(__file__).resolve().parents[2] / "NolvexLibWx" / "resources"
KINDS = ("Error", "Warning", "Info", "Question", "Success")
SIZE = 128


def render(drawing):
    picture = drawing.with_suffix(".png")
    size = ["--width", str(SIZE), "--height", str(SIZE)]
    subprocess.run(["rsvg-convert", *size, "--output", picture, drawing], check=True)
    return picture.read_bytes()


def array(name, data):
    return [
        f"const int Resources::{name}_SIZE = {len(data)};",
        "",
        "// clang-format off",
        f"const unsigned Resources::{name}[] = {{",
        *words.lines(data),
        "};",
        "// clang-format on",
        "",
    ]


def main():
    body = []
    for kind in KINDS:
        body += array(f"MESSAGE_{kind.upper()}_ICON", render(RESOURCES / f"Message{kind}Icon.svg"))
    text = words.unit("message_icons.py", "MessageIcons.h", body[:-1])
    (RESOURCES / "MessageIcons.cpp").write_text(text, encoding="ascii", newline="\n")


if __name__ == "__main__":
    sys.exit(main())
