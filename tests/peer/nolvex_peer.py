#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""One end of an exchange over the wire protocol, made of nothing but its description in docs/protocol.md and Python's
standard library.

A text is given as it is or, as @FILE, in a file that holds it in UTF-8; a tree in a file that holds it in the XML form.
Both are printed as ASCII: a backslash and what is not printable ASCII as \\u{HEX}. Contents go to files.

Items of send-messages: xml:TREE, raw:FILE[,TREE], file:FILE[,TREE], compressed:FILE[,TREE], and bytes:FILE for what is
sent as it is. Items of send-datagrams: bytes:FILE, xml:TREE; those of receive-datagrams: bytes, xml.

The status is 1 when something was refused, or could not be sent; the line "refused: ..." says why.
"""
import argparse
import socket
import sys
from pathlib import Path

import nolvex_wire as wire

TIME_OUT = 30


def escape(text):
    return "".join(c if " " <= c <= "~" and c != "\\" else f"\\u{{{ord(c):X}}}" for c in text)


def text_argument(argument):
    return Path(argument[1:]).read_bytes().decode("utf-8") if argument.startswith("@") else argument


def read_tree(path):
    return wire.parse_document(Path(path).read_bytes())


def format_tree(tree):
    return escape(wire.encode_document(tree).decode("utf-8"))


def say(line):
    print(line, flush=True)


# --- what is sent --------------------------------------------------------------------------------------------------


def encode_item(item):
    kind, _, rest = item.partition(":")
    content, _, tree_path = rest.partition(",")
    if kind == "xml":
        return wire.encode_xml_message(read_tree(content))
    data = Path(content).read_bytes()
    if kind == "bytes":
        return data
    tree = read_tree(tree_path) if tree_path else []
    if kind == "raw":
        return wire.encode_raw_message(data, tree)
    if kind in ("file", "compressed"):
        return wire.encode_file_message(data, tree, kind == "compressed")
    raise wire.ProtocolError(f"{item} is no item")


def encode_datagram(item):
    kind, _, path = item.partition(":")
    if kind == "xml":
        return wire.encode_tree_datagram(read_tree(path))
    if kind == "bytes":
        return wire.check_datagram(Path(path).read_bytes())
    raise wire.ProtocolError(f"{item} is no item")


# --- connections ---------------------------------------------------------------------------------------------------


def tell_port(stream):
    """Prints the port on which this end now waits."""
    say(f"port {stream.getsockname()[1]}")


def listening(options):
    server = socket.socket()
    server.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    server.bind((options.host, options.port))
    server.listen()
    server.settimeout(TIME_OUT)
    tell_port(server)
    return server


def connect(options):
    if not options.listen:
        return wire.Connection(socket.create_connection((options.host, options.port), TIME_OUT), TIME_OUT)
    with listening(options) as server:
        stream, _ = server.accept()
        return wire.Connection(stream, TIME_OUT)


def send_strings(options):
    with connect(options) as connection:
        for argument in options.values:
            connection.write_string(text_argument(argument))
        connection.wait_for_end()


def receive_strings(options):
    with connect(options) as connection:
        for _ in range(options.count):
            say(escape(connection.read_string()))


def send_messages(options):
    # Formed beforehand, so that nothing but the network delays a body.
    messages = [encode_item(item) for item in options.items]
    with connect(options) as connection:
        for message in messages:
            connection.write(message)
        connection.wait_for_end()


def receive_message(connection, path):
    tree = connection.read_header()
    say(f"{path.name}: {wire.KINDS[wire.data_type(tree)]}")
    say("  " + format_tree(tree))
    if wire.data_type(tree) == wire.XML_STRING:
        return
    with path.open("wb") as file:
        for part in connection.read_body(tree):
            file.write(part)


def receive_messages(options):
    with connect(options) as connection:
        for number in range(1, options.count + 1):
            receive_message(connection, Path(options.folder) / str(number))


# --- datagrams -----------------------------------------------------------------------------------------------------


def send_datagrams(options):
    with socket.socket(type=socket.SOCK_DGRAM) as stream:
        for item in options.items:
            stream.sendto(encode_datagram(item), (options.host, options.port))


def receive_datagrams(options):
    with socket.socket(type=socket.SOCK_DGRAM) as stream:
        stream.bind((options.host, options.port))
        stream.settimeout(TIME_OUT)
        tell_port(stream)
        for number, kind in enumerate(options.items, 1):
            data = wire.read_datagram(stream)
            say(f"{number}: {kind}")
            if kind == "xml":
                say("  " + format_tree(wire.parse_tree_datagram(data)))
            else:
                (Path(options.folder) / str(number)).write_bytes(data)


# --- the command line ----------------------------------------------------------------------------------------------


class Parser(argparse.ArgumentParser):
    def error(self, message):
        self.exit(1, f"{self.prog}: {message}\n")


COMMANDS = {
    "send-strings": (send_strings, "plain strings", {"values": {"nargs": "+"}}),
    "receive-strings": (receive_strings, "plain strings, a line each", {"count": {"type": int}}),
    "send-messages": (send_messages, "messages", {"items": {"nargs": "+"}}),
    "receive-messages": (
        receive_messages,
        "messages; the contents become files named 1, 2, ...",
        {"folder": {}, "count": {"type": int}},
    ),
    "send-datagrams": (send_datagrams, "datagrams", {"items": {"nargs": "+"}}),
    "receive-datagrams": (
        receive_datagrams,
        "datagrams; the bytes become files named 1, 2, ...",
        {"folder": {}, "items": {"nargs": "+", "choices": ["bytes", "xml"]}},
    ),
}


def parse_arguments(arguments):
    parser = Parser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(dest="command", metavar="COMMAND", required=True)
    for name, (run, description, positional) in COMMANDS.items():
        command = commands.add_parser(name, help=description, description=description)
        command.set_defaults(run=run)
        command.add_argument("--listen", action="store_true", help="wait for the other side")
        command.add_argument("host", help="the other side; where to wait, when waiting")
        command.add_argument("port", type=int, help="0, when waiting: one that the system gives")
        for argument, details in positional.items():
            command.add_argument(argument, metavar=argument.upper(), **details)
    return parser.parse_args(arguments)


def main(arguments=None):
    options = parse_arguments(arguments)
    try:
        options.run(options)
    except (wire.ProtocolError, OSError, ValueError) as error:
        say(f"refused: {escape(str(error))}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
