#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""monitors.py SOCKET WIDTHxHEIGHT+X+Y...: gives a VNC server's X screen these monitors, by asking it as a viewer would.

The server listens on a socket of the file system, without authentication. The screen becomes the smallest that holds
the monitors.
"""
import re
import socket
import struct
import sys

NO_AUTHENTICATION = 1
RAW = 0
DESKTOP_SIZE = -308
BY_THIS_VIEWER = 1


class Viewer:
    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(20)
        self.socket.connect(path)
        self.pixel_bytes = 4
        self.shake_hands()

    def read(self, form):
        left = struct.calcsize(form)
        data = b""
        while len(data) < left:
            part = self.socket.recv(left - len(data))
            if not part:
                sys.exit("the server closed the connection")
            data += part
        return struct.unpack(form, data)

    def send(self, form, *values):
        self.socket.sendall(struct.pack(form, *values))

    def shake_hands(self):
        self.read("12s")
        self.send("12s", b"RFB 003.008\n")
        (count,) = self.read("B")
        self.read(f"{count}s")
        self.send("B", NO_AUTHENTICATION)
        if self.read(">I") != (0,):
            sys.exit("the server refuses viewers")
        self.send("B", 1)  # others may stay
        *_, bits, _, _, _, _, _, _, _, _, _, name_length = self.read(">HHBBBBHHHBBB3sI")
        self.read(f"{name_length}s")

    def set_monitors(self, monitors):
        width = max(x + w for w, h, x, y in monitors)
        height = max(y + h for w, h, x, y in monitors)
        self.send(">BxHii", 2, 2, RAW, DESKTOP_SIZE)
        self.send(">BxHHBx", 251, width, height, len(monitors))
        for number, (w, h, x, y) in enumerate(monitors):
            self.send(">IHHHHI", number, x, y, w, h, 0)
        status = None
        while status is None:
            self.send(">BBHHHH", 3, 1, 0, 0, 1, 1)
            status = self.answer()
        if status != 0:
            sys.exit(f"the server refuses the monitors, status {status}")

    def answer(self):
        (kind,) = self.read("B")
        if kind != 0:
            sys.exit(f"the server sent a message of kind {kind}")
        status = None
        (count,) = self.read(">xH")
        for _ in range(count):
            x, y, w, h, encoding = self.read(">HHHHi")
            if encoding == RAW:
                self.read(f"{w * h * self.pixel_bytes}s")
            elif encoding == DESKTOP_SIZE:
                (screens,) = self.read("Bxxx")
                self.read(f"{16 * screens}s")
                status = y if x == BY_THIS_VIEWER else status
        return status


def main():
    form = re.compile(r"(\d+)x(\d+)\+(\d+)\+(\d+)")
    monitors = [form.fullmatch(argument) for argument in sys.argv[2:]]
    if not monitors or not all(monitors):
        sys.exit(__doc__)
    Viewer(sys.argv[1]).set_monitors([tuple(map(int, monitor.groups())) for monitor in monitors])


main()
