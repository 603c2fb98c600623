#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""make_contents.py FOLDER: the contents of the exchanges of tools/testing/peer.sh.

A list of messages NAME has three parts: NAME.items, what send-... is given; NAME.expected, what receive-... has to
print; NAME.files, what it has to write. All is spelled out here once more, byte by byte, without either of the ends.
"""
import random
import sys
import zlib
from pathlib import Path

SOURCE = random.Random(1)
NOISE = SOURCE.randbytes(3_000_001)
CONTENTS = {
    "empty": b"",
    "one": b"\0",
    "65535": NOISE[:65535],
    "65536": NOISE[:65536],
    "65537": NOISE[:65537],
    "noise": NOISE,
    "zeros": bytes(5_000_000),
    "both": bytes(200_000) + NOISE[:200_000] + b"abc" * 100_000,
}
DATAGRAMS = {"one": b"\0", "bytes-512": NOISE[:512], "bytes-511": NOISE[:511]}
BEYOND_ASCII = "5 \u20ac \U0001f600 \ue000 \uffff \\ \"\n\t\x7f\x85\U0010ffff e\u0301"
STRINGS = {"beyond-ascii": BEYOND_ASCII, "long": (BEYOND_ASCII + "0123456789") * 20_000}

ESCAPED = "&lt;&amp;amp;&gt; ]]&gt; \"' \t\r\n 5 \u20ac \U0001f600\ufffd"
# A file's text, and the children that it has when it is written in the one form.
TREES = {
    "empty-tree": ("<?xml version='1.0'?>\n<root/>\n", ""),
    "nested": (
        "<root>\n <A><B><C> 1 </C><C>2</C></B><B/></A>\n <a>3</a>\n <A>4</A>\n</root>",
        "<A><B><C> 1 </C><C>2</C></B><B></B></A><a>3</a><A>4</A>",
    ),
    "escaped": (
        f"<root><Text>{ESCAPED.replace(chr(34), '&quot;')}</Text></root>",
        f"<Text>{ESCAPED}</Text>",
    ),
    "deep": 2 * ("<root>" + "<A>" * 63 + "5" + "</A>" * 63 + "</root>",),
    "large": 2 * ("<root>" + f"<Key>{'x' * 1000}</Key>" * 1000 + "</root>",),
}
TREES_OF_DATAGRAMS = ("empty-tree", "nested", "escaped", "longest")
OPENED, CLOSED = "<root>", "</root>"


def escape(text):
    return "".join(c if " " <= c <= "~" and c != "\\" else f"\\u{{{ord(c):X}}}" for c in text)


def children_of(name):
    return TREES[name][1].replace(OPENED, "").replace(CLOSED, "")


def header(kind, content, tree, compressed):
    """The document that the receiver prints. How many bytes an encoder makes is its own affair."""
    children = children_of(tree) if tree else ""
    sizes = f"<FileSize>{len(CONTENTS[content])}</FileSize><Compressed>{compressed}</Compressed>" if content else ""
    sizes += "<CompressedSize>some</CompressedSize>" if compressed else ""
    return f"{OPENED}<DataType>{kind}</DataType>{children}{sizes}{CLOSED}"


class Exchange:
    """Builds one list of messages."""

    def __init__(self, folder, name):
        self.items, self.printed = [], []
        self.folder, self.name = folder, name
        self.received = folder / f"{name}.files"
        self.received.mkdir()

    def print_tree(self, label, document):
        number = len(self.items)
        self.printed += [f"{number}: {label}", "  " + escape(document)]

    def message(self, kind, content, tree=""):
        self.items.append(f"{kind}:{content},{tree}.xml" if tree else f"{kind}:{content}")
        printed_kind = {"compressed": "file"}.get(kind, kind)
        number = {"raw": 2, "file": 1}[printed_kind]
        self.print_tree(printed_kind, header(number, content, tree, int(kind == "compressed")))
        (self.received / str(len(self.items))).write_bytes(CONTENTS[content])

    def tree(self, name):
        self.items.append(f"xml:{name}.xml")
        self.print_tree("xml", header(0, "", name, 0))

    def datagram(self, name):
        self.items.append(f"bytes:{name}")
        self.printed.append(f"{len(self.items)}: bytes")
        (self.received / str(len(self.items))).write_bytes(DATAGRAMS[name])

    def tree_datagram(self, name):
        self.items.append(f"xml:{name}.xml")
        self.print_tree("xml", OPENED + children_of(name) + CLOSED)

    def foreign(self, kind, sent, children, content=b""):
        """Adds bytes that another writer might send, and the children that are read from them."""
        self.items.append(f"bytes:{self.name}-{len(self.items) + 1}")
        (self.folder / self.items[-1][len("bytes:") :]).write_bytes(sent)
        self.print_tree(kind, OPENED + children + CLOSED)
        if kind != "xml":
            (self.received / str(len(self.items))).write_bytes(content)

    def write(self):
        (self.folder / f"{self.name}.items").write_text("".join(f"{item}\n" for item in self.items), "ascii")
        (self.folder / f"{self.name}.expected").write_text("".join(f"{line}\n" for line in self.printed), "ascii")


def make_strings(folder):
    exchange = Exchange(folder, "strings")
    for text in ("", "abc", " a  b ", "@beyond-ascii", "@long", "", "z"):
        exchange.items.append(text)
        exchange.printed.append(escape(STRINGS[text[1:]] if text.startswith("@") else text))
    exchange.write()


def make_bodies(folder, kind):
    exchange = Exchange(folder, kind)
    for content in CONTENTS:
        # Raw data cannot be empty.
        if content != "empty" or kind != "raw":
            exchange.message(kind, content)
    exchange.message(kind, "one", "escaped")
    exchange.message(kind, "65537", "nested")
    exchange.write()


def make_trees(folder):
    exchange = Exchange(folder, "trees")
    for name in TREES:
        if name != "longest":
            exchange.tree(name)
    exchange.write()


def make_mixed(folder):
    exchange = Exchange(folder, "mixed")
    for kind, content in (("compressed", "noise"), ("raw", "one"), ("file", "65537"), ("compressed", "empty")):
        exchange.message(kind, content)
        exchange.tree("nested")
    exchange.message("file", "empty")
    exchange.message("raw", "65536")
    exchange.write()


def make_datagrams(folder):
    exchange = Exchange(folder, "datagrams")
    for name in DATAGRAMS:
        exchange.datagram(name)
    for name in TREES_OF_DATAGRAMS:
        exchange.tree_datagram(name)
    exchange.write()


def make_foreign_files(exchange):
    run, empty_run = zlib.compress(b"12345"), zlib.compress(b"")
    sizes = "<CompressedSize>{}</CompressedSize><FileSize>{}</FileSize><Compressed>{}</Compressed>"

    def children_of_file(length, size, compressed):
        return sizes.format(length, size, compressed) + "<DataType>1</DataType>"

    def add(body, size, compressed, content):
        sent = OPENED + children_of_file(len(body), size, compressed) + CLOSED
        read = children_of_file("some", size, compressed)
        exchange.foreign("file", sent.encode() + b"\0" + body, read, content)

    add(run, 5, 1, b"12345")
    add(run, 5, -1, b"12345")
    add(run, 6, 1, b"12345")
    add(run + b"\xff" * 70, 5, 1, b"12345")
    add(empty_run + b"\xff" * (65536 - len(empty_run)) + run, 5, 1, b"12345")
    add(b"", 7, 1, b"")


def make_foreign(folder):
    """Writes messages that this library would not write but has to read."""
    exchange = Exchange(folder, "foreign")
    make_foreign_files(exchange)
    raw = "<A><B></B></A><Compressed>1</Compressed><FileSize>0005</FileSize><DataType>002</DataType>"
    exchange.foreign("raw", f"<root>{raw}</root>".encode() + b"\x0012345", raw, b"12345")
    passed_on = raw + "<FileSize>5</FileSize><Compressed>1</Compressed>"
    exchange.foreign("raw", f"<root>{passed_on}</root>".encode() + b"\x0012345", passed_on, b"12345")
    twice = "<DataType>-0</DataType><DataType>7</DataType><FileSize>x</FileSize><FileSize></FileSize>"
    exchange.foreign("xml", f"<?xml version='1.0'?>\n<root >{twice}\n</root>\n".encode() + b"\0", twice)
    broken = "<DataType>0</DataType><A>1\ufffd2</A>"
    exchange.foreign("xml", b"<root><DataType>0</DataType><A>1\xff2</A></root>\0", broken)
    exchange.write()


def make_foreign_datagrams(folder):
    exchange = Exchange(folder, "foreign-datagrams")
    exchange.foreign("xml", b"<root><Id>7</Id></root>", "<Id>7</Id>")
    exchange.foreign("xml", b"<root>\n<Id>&quot;</Id></root>\0 and more\0", '<Id>"</Id>')
    exchange.foreign("xml", b"<root><Id>7\xff</Id></root>\0", "<Id>7\ufffd</Id>")
    exchange.foreign("xml", b"<root><Id>7</Id></root>".ljust(512), "<Id>7</Id>")
    exchange.foreign("xml", b"no document", "")
    exchange.write()


def broken_messages():
    """Writes messages that are refused. Each is complete except for the defect in its name."""
    size, plain = "<FileSize>5</FileSize>", "<Compressed>0</Compressed>"
    whole = zlib.compress(NOISE[:5])
    long_run = zlib.compress(NOISE[:100_000])
    deflated = "<FileSize>{}</FileSize><Compressed>1</Compressed><CompressedSize>{}</CompressedSize>"

    def message(kind, children, body=b"12345"):
        return f"<root><DataType>{kind}</DataType>{children}</root>".encode() + b"\0" + body

    for kind, name in ((1, "file"), (2, "raw")):
        yield f"{name}-without-size", message(kind, plain)
        yield f"{name}-without-compressed", message(kind, size)
        yield f"{name}-of-two-sizes", message(kind, size + "<FileSize>6</FileSize>" + plain)
        yield f"{name}-of-negative-size", message(kind, "<FileSize>-5</FileSize>" + plain)
    yield "file-without-compressed-size", message(1, size + "<Compressed>1</Compressed>", whole)
    yield "file-of-one-long-run", message(1, deflated.format(100_000, len(long_run)), long_run)
    yield "file-of-wrong-sum", message(1, deflated.format(5, len(whole)), whole[:-1] + bytes([whole[-1] ^ 1]))
    yield "file-of-more-than-its-size", message(1, deflated.format(4, len(whole)), whole)
    yield "message-without-type", b"<root><A>0</A></root>\0"
    yield "message-of-no-number", message(" 0", "", b"")
    yield "message-of-unknown-type", message(7, "", b"")
    yield "message-with-attribute", b"<root><DataType a='1'>0</DataType></root>\0"


def main(folder):
    longest = f"{OPENED}<A>{'x' * (511 - len(OPENED + '<A></A>' + CLOSED))}</A>{CLOSED}"
    TREES["longest"] = (longest, longest)
    for name, content in {**CONTENTS, **DATAGRAMS}.items():
        (folder / name).write_bytes(content)
    for name, text in STRINGS.items():
        (folder / name).write_bytes(text.encode("utf-8"))
    for name, (text, _) in TREES.items():
        (folder / f"{name}.xml").write_bytes(text.encode("utf-8"))
    for name, message in broken_messages():
        (folder / f"broken-{name}").write_bytes(message)
    make_strings(folder)
    for kind in ("raw", "file", "compressed"):
        make_bodies(folder, kind)
    make_trees(folder)
    make_mixed(folder)
    make_datagrams(folder)
    make_foreign(folder)
    make_foreign_datagrams(folder)


if __name__ == "__main__":
    main(Path(sys.argv[1]))
