#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Uses the library from Python by its C interface: sends a text, a block of memory and a file to a receiver on this
computer.

usage: send_by_library.py LIBRARY PORT FILE"""
import ctypes
import sys

OK = 0
NO_TIME_LIMIT = ctypes.c_int64(-1)
CONNECT_SECONDS = 5


class Failure(Exception):
    pass


class Library:
    """The network part of the library, while the object is entered."""

    def __init__(self, path):
        self._functions = ctypes.CDLL(path)
        self._functions.nolvexLastError.restype = ctypes.c_char_p
        self._functions.nolvexVersion.restype = ctypes.c_char_p

    def __enter__(self):
        self.check(self._functions.nolvexStartupNetwork())
        return self

    def __exit__(self, *_):
        self._functions.nolvexShutdownNetwork()

    def check(self, status):
        if status != OK:
            raise Failure(self._functions.nolvexLastError().decode("utf-8"))

    def version(self):
        return self._functions.nolvexVersion().decode("utf-8")

    def connect(self, host, port):
        connection = ctypes.c_void_p()
        self.check(
            self._functions.nolvexConnect(
                host.encode("utf-8"), ctypes.c_uint16(port), CONNECT_SECONDS, ctypes.byref(connection)
            )
        )
        return Connection(self, self._functions, connection)


class Connection:
    """A connection, which ends when the object is left."""

    def __init__(self, library, functions, handle):
        self._library = library
        self._functions = functions
        self._handle = handle

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._functions.nolvexCloseConnection(self._handle)

    def send_text(self, xml):
        self._library.check(self._functions.nolvexSendText(self._handle, xml.encode("utf-8"), NO_TIME_LIMIT))

    def send_memory(self, data):
        size = ctypes.c_size_t(len(data))
        self._library.check(self._functions.nolvexSendMemory(self._handle, data, size, None, NO_TIME_LIMIT))

    def send_file(self, path):
        self._library.check(
            self._functions.nolvexSendFile(self._handle, path.encode("utf-8"), None, 0, NO_TIME_LIMIT)
        )


def main():
    if len(sys.argv) != 4:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        with Library(sys.argv[1]) as library, library.connect("127.0.0.1", int(sys.argv[2])) as connection:
            connection.send_text("<root><Frame>12</Frame></root>")
            connection.send_memory(b"twelve frames")
            connection.send_file(sys.argv[3])
    except Failure as failure:
        print(failure, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
