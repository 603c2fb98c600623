# SPDX-License-Identifier: MIT
"""Writes image files as words that are compiled into the library."""

import struct

WORDS_A_LINE = 8


def padded(data):
    """Returns the bytes, filled up with zeros to whole words."""
    return data + bytes(-len(data) % 4)


def lines(data, indent="    "):
    """Returns the lines of an initialiser with words of little-endian byte order."""
    words = struct.unpack(f"<{len(padded(data)) // 4}I", padded(data))
    return [
        indent + ", ".join(f"0x{word:08x}" for word in words[start : start + WORDS_A_LINE]) + ","
        for start in range(0, len(words), WORDS_A_LINE)
    ]


def unit(script, header, body):
    """Returns a source file for NolvexLibWx/resources, with the lines of the body in namespace Nolvex."""
    return "\n".join(
        [
            "// SPDX-License-Identifier: MIT",
            f"// Made by tools/artwork/{script}.",
            f'#include "NolvexLibWx/resources/{header}"',
            "",
            "namespace Nolvex {",
            "",
            *body,
            "",
            "} // namespace Nolvex",
            "",
        ]
    )
