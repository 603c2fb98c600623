# SPDX-License-Identifier: MIT
"""The wire protocol, written from docs/protocol.md, and the page of the forms that it refers to, with Python's standard
library alone.

A tree is a list of pairs of a name and either a text or a tree; the tree without children is the empty text.
"""
import re
import socket
import sys
import zlib

PIECE = 65536
HEADER_LIMIT = 64 * 1024 * 1024
DATAGRAM_LIMIT = 512
XML_STRING, FILE, RAW = 0, 1, 2
KINDS = {XML_STRING: "xml", FILE: "file", RAW: "raw"}
OWN_KEYS = ("DataType", "FileSize", "Compressed", "CompressedSize")

NAME = "[A-Za-z_][A-Za-z0-9_.-]*"
SPACE = "[ \t\r\n]"
WHOLE_NAME = re.compile(NAME + r"\Z")
TOKEN = re.compile(f"<(?P<end>/?)(?P<name>{NAME}){SPACE}*(?P<empty>/?)>|(?P<text>[^<]+)")
DECLARATION = re.compile(
    r"""<\?xml S+ version S*=S* ("1\.0"|'1\.0')
    (S+ encoding S*=S* (?i:"utf-8"|'utf-8'))? (S+ standalone S*=S* ("(yes|no)"|'(yes|no)'))? S*\?>""".replace(
        "S", r"[\ \t\r\n]"
    ),
    re.VERBOSE,
)
NOT_CARRIED = re.compile("[^\t\n\r\x20-\ud7ff\ue000-\ufffd\U00010000-\U0010ffff]")
ENTITY = re.compile("&([^;&]*;?)")
ENTITIES = {"amp;": "&", "lt;": "<", "gt;": ">", "quot;": '"', "apos;": "'"}
MOST_LEVELS = 64
INTEGER = re.compile(r"-?[0-9]+\Z")


class ProtocolError(Exception):
    """Raised if received bytes break the protocol, or if the bytes to be sent would."""


# --- the XML form --------------------------------------------------------------------------------------------------


def encode_text(text):
    text = NOT_CARRIED.sub("\ufffd", text)
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def encode_content(content, level):
    if isinstance(content, str):
        return encode_text(content)
    if content and level == MOST_LEVELS:
        raise ProtocolError(f"more than {MOST_LEVELS} levels")
    return "".join(encode_element(name, value, level + 1) for name, value in content)


def encode_element(name, content, level=1):
    if not WHOLE_NAME.match(name):
        raise ProtocolError(f"{name!r} is no name")
    return f"<{name}>{encode_content(content, level)}</{name}>"


def encode_document(tree):
    """The bytes of the XML form, without the zero byte that follows them on the wire."""
    return encode_element("root", tree).encode("utf-8")


def decode_text(text):
    def replaced(match):
        if match.group(1) not in ENTITIES:
            raise ProtocolError(f"{match.group(0)!r} is no entity of the form")
        return ENTITIES[match.group(1)]

    if "]]>" in text or NOT_CARRIED.search(text):
        raise ProtocolError("a text holds what it cannot")
    return ENTITY.sub(replaced, text)


class DocumentReader:
    """Takes the tokens of a document one after the other."""

    def __init__(self):
        # The document itself is the outermost element: it has no name, and one child.
        self.open = [("", [], [])]

    def end(self, name):
        opened, children, texts = self.open.pop()
        if not self.open or opened != name:
            raise ProtocolError(f"</{name}> ends nothing")
        text = "".join(texts)
        if children and text.strip(" \t\r\n"):
            raise ProtocolError(f"{name} holds text beside elements")
        self.open[-1][1].append((name, children or decode_text(text)))

    def take(self, match):
        if match.group("text"):
            self.open[-1][2].append(match.group("text"))
            return
        if not match.group("end"):
            self.open.append((match.group("name"), [], []))
        elif match.group("empty"):
            raise ProtocolError("a tag that ends twice")
        if len(self.open) > MOST_LEVELS + 1:
            raise ProtocolError(f"more than {MOST_LEVELS} levels")
        if match.group("end") or match.group("empty"):
            self.end(match.group("name"))

    def result(self):
        _, children, texts = self.open[0]
        if len(self.open) != 1 or [name for name, _ in children] != ["root"] or "".join(texts).strip(" \t\r\n"):
            raise ProtocolError("the document is not one root")
        tree = children[0][1]
        if isinstance(tree, str) and tree.strip(" \t\r\n"):
            raise ProtocolError("the root holds text")
        return tree if isinstance(tree, list) else []


def parse_document(data):
    """The tree of a document in the XML form."""
    text = data.decode("utf-8", "replace")
    declaration = DECLARATION.match(text)
    reader, position = DocumentReader(), declaration.end() if declaration else 0
    while position < len(text):
        match = TOKEN.match(text, position)
        if not match:
            raise ProtocolError(f"no document of the XML form from character {position} on")
        reader.take(match)
        position = match.end()
    return reader.result()


# --- headers -------------------------------------------------------------------------------------------------------


def integer(text, bits):
    if not isinstance(text, str) or not INTEGER.match(text):
        raise ProtocolError(f"{text!r} is no integer")
    value = int(text)
    if not -(1 << (bits - 1)) <= value < 1 << (bits - 1):
        raise ProtocolError(f"{text} has more than {bits} bits")
    return value


def children_named(tree, name):
    return [value for key, value in tree if key == name]


def data_type(tree):
    """Returns the kind of message that the header of this tree begins."""
    values = children_named(tree, "DataType")
    if not values:
        raise ProtocolError("the header has no DataType")
    value = integer(values[0], 32)
    if value not in KINDS:
        raise ProtocolError(f"there is no DataType {value}")
    return value


def agreed_integer(tree, key, bits):
    """The integer that all children with that name hold."""
    values = {integer(value, bits) for value in children_named(tree, key)}
    if len(values) != 1:
        raise ProtocolError(f"the header has {len(values)} different {key}")
    return values.pop()


def size_of(tree, key):
    value = agreed_integer(tree, key, 64)
    if value < 0:
        raise ProtocolError(f"{key} is negative")
    return value


def encode_header(kind, tree, sizes=()):
    """A header and its zero byte. The tree is the program's own; sizes are pairs of the other keys and their values."""
    for name, _ in tree:
        if name == "DataType" or (name in OWN_KEYS and kind != XML_STRING):
            raise ProtocolError(f"{name} belongs to the protocol")
    whole = [("DataType", str(kind)), *tree, *((key, str(value)) for key, value in sizes)]
    return encode_document(whole) + b"\0"


def encode_xml_message(tree):
    return encode_header(XML_STRING, tree)


def encode_raw_message(data, tree=()):
    return encode_header(RAW, tree, [("FileSize", len(data)), ("Compressed", 0)]) + data


def encode_file_message(data, tree=(), compress=False):
    sizes = [("FileSize", len(data)), ("Compressed", int(compress))]
    if not compress:
        return encode_header(FILE, tree, sizes) + data
    body = compress_body(data)
    return encode_header(FILE, tree, [*sizes, ("CompressedSize", compressed_size(len(body)))]) + body


def compressed_size(length):
    if length >= 1 << 32:
        raise ProtocolError(f"a compressed file of {length} bytes")
    return length


# --- compressed bodies ---------------------------------------------------------------------------------------------


def compress_piece(data, start, level, limit):
    """One run that fits into a piece, and where the content of the next one begins."""
    encoder = zlib.compressobj(level)
    run = bytearray()
    position = start
    stop = min(len(data), start + limit)
    while position < stop:
        room = PIECE - len(run)
        # Compressed content may be longer: block headers, the end of the flush and of the run.
        fed = min(room - 512 - room // 512, stop - position)
        if fed <= 0:
            break
        run += encoder.compress(data[position : position + fed]) + encoder.flush(zlib.Z_SYNC_FLUSH)
        position += fed
    run += encoder.flush()
    if len(run) > PIECE:
        raise AssertionError("a run outgrew its piece")
    return bytes(run), position


def compress_body(data, level=6, limit=sys.maxsize):
    """The pieces of a compressed file. The limit, in bytes of content, keeps the runs short and the filler long."""
    body = bytearray()
    position = 0
    while True:
        run, position = compress_piece(data, position, level, limit)
        body += run
        if position >= len(data):
            return bytes(body)
        body += bytes(PIECE - len(run))


def decompress_piece(piece):
    """The content of one piece, in parts of limited length."""
    decoder = zlib.decompressobj()
    try:
        while not decoder.eof:
            part = decoder.decompress(piece, PIECE)
            piece = decoder.unconsumed_tail
            if part:
                yield part
            elif not decoder.eof:
                raise ProtocolError("a run is cut off by the end of its piece")
    except zlib.error as error:
        raise ProtocolError(f"a compressed piece is broken: {error}") from error


# --- connections ---------------------------------------------------------------------------------------------------


class Connection:
    """One end of a TCP connection."""

    def __init__(self, stream, timeout=30):
        self.stream = stream
        self.buffer = bytearray()
        stream.settimeout(timeout)
        stream.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stream.close()

    def more(self):
        """Takes what has arrived; False at the end of the connection."""
        try:
            part = self.stream.recv(1 << 20)
        except OSError as error:
            raise ProtocolError(f"nothing arrives: {error}") from error
        self.buffer += part
        return bool(part)

    def read(self, count):
        while len(self.buffer) < count:
            if not self.more():
                raise ProtocolError(f"the connection ended, {count - len(self.buffer)} bytes are missing")
        data = bytes(self.buffer[:count])
        del self.buffer[:count]
        return data

    def read_to_zero(self):
        """Returns the bytes up to a zero byte, which is removed as well."""
        searched = 0
        while True:
            end = self.buffer.find(0, searched)
            if end >= 0:
                return self.read(end + 1)[:-1]
            searched = len(self.buffer)
            if searched >= HEADER_LIMIT:
                raise ProtocolError("the zero byte does not come")
            if not self.more():
                raise ProtocolError("the connection ended before the zero byte")

    def write(self, data):
        try:
            self.stream.sendall(data)
        except OSError as error:
            raise ProtocolError(f"the other side takes nothing: {error}") from error

    def write_string(self, text):
        if "\0" in text:
            raise ProtocolError("U+0000 cannot be sent")
        self.write(text.encode("utf-8") + b"\0")

    def read_string(self):
        return self.read_to_zero().decode("utf-8", "replace")

    def read_header(self):
        return parse_document(self.read_to_zero())

    def read_body(self, tree):
        """The content that follows the header of this tree, in parts."""
        kind = data_type(tree)
        if kind == XML_STRING:
            return
        size, compressed = size_of(tree, "FileSize"), agreed_integer(tree, "Compressed", 32)
        if kind == RAW and not 0 < size < 1 << 31:
            raise ProtocolError(f"raw data of {size} bytes")
        if kind == FILE and compressed != 0:
            yield from self.read_compressed(size_of(tree, "CompressedSize"), size)
        else:
            yield from self.read_pieces(size)

    def read_pieces(self, left):
        while left:
            piece = self.read(min(left, PIECE))
            left -= len(piece)
            yield piece

    def read_compressed(self, length, content_left):
        for piece in self.read_pieces(length):
            for part in decompress_piece(piece):
                content_left -= len(part)
                if content_left < 0:
                    raise ProtocolError("the file holds more than its header says")
                yield part

    def read_message(self):
        """The tree of a message, DataType included, and its content."""
        tree = self.read_header()
        return tree, b"".join(self.read_body(tree))

    def wait_for_end(self):
        """Waits until the other side has received everything and closes the connection."""
        while self.more():
            pass


# --- datagrams -----------------------------------------------------------------------------------------------------


def encode_tree_datagram(tree):
    document = encode_document(tree)
    if len(document) >= DATAGRAM_LIMIT:
        raise ProtocolError(f"a document of {len(document)} bytes does not fit into a datagram")
    return document + b"\0"


def parse_tree_datagram(data):
    """Returns the tree, or an empty tree if the datagram is no document."""
    try:
        return parse_document(data[: DATAGRAM_LIMIT - 1].split(b"\0", 1)[0])
    except ProtocolError:
        return []


def check_datagram(data):
    if not 0 < len(data) <= DATAGRAM_LIMIT:
        raise ProtocolError(f"a datagram of {len(data)} bytes")
    return data


def read_datagram(stream):
    """The first 512 bytes of the next datagram that is not empty."""
    data = b""
    while not data:
        data = stream.recv(PIECE)[:DATAGRAM_LIMIT]
    return data
