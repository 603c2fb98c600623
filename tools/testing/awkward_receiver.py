# SPDX-License-Identifier: MIT
"""awkward_receiver.py shorten FILE | silent: a receiver that puts transfer-send to the test.

It makes trouble on the first connection, until the sender hangs up: it shortens the FILE that the sender is sending, or
it gives no answer. Then it serves a second connection as it should. What happened is printed, a line each.
"""
import re
import socket
import sys

ANSWER = "<root><DataType>0</DataType><Answer>%s</Answer></root>\0"
SECONDS = 20


def header_of(stream):
    header = bytearray()
    while not header.endswith(b"\0"):
        byte = stream.read(1)
        if not byte:
            return None
        header += byte
    return header.decode()


def answer(stream, word):
    stream.write((ANSWER % word).encode())
    stream.flush()


def number_in(header, key):
    return int(re.search(f"<{key}>([0-9]+)</{key}>", header)[1])


def receive_file(stream):
    header_of(stream)
    answer(stream, "welcome")
    size = number_in(header_of(stream), "FileSize")
    is_whole = len(stream.read(size)) == size
    answer(stream, "received")
    print("received a whole file" if is_whole else "received half a file")


def shorten(stream, path):
    header_of(stream)
    answer(stream, "welcome")
    size = number_in(header_of(stream), "FileSize")
    with open(path, "r+b") as file:
        file.truncate(10)
    count = 0
    while piece := stream.read(min(65536, size - count)):
        count += len(piece)
    print("the first file is whole" if count == size else "the sender hung up")


def stay_silent(stream):
    header_of(stream)
    print("the sender hung up" if header_of(stream) is None else "the sender went on")


def main():
    listener = socket.create_server(("127.0.0.1", 0))
    listener.settimeout(SECONDS)
    print("listening on 127.0.0.1 port", listener.getsockname()[1], flush=True)
    for number in range(2):
        connection, _ = listener.accept()
        connection.settimeout(SECONDS)
        with connection, connection.makefile("rwb") as stream:
            if number == 1:
                receive_file(stream)
            elif sys.argv[1] == "shorten":
                shorten(stream, sys.argv[2])
            else:
                stay_silent(stream)


main()
