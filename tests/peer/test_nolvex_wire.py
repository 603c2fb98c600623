#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests the peer's messages against the peer itself and against the examples of docs/protocol.md."""
import contextlib
import socket
import threading
import unittest
import zlib
from pathlib import Path

import nolvex_wire as wire

PAGE = Path(__file__).resolve().parents[2] / "docs" / "protocol.md"
HELLO = b"Hello, peer!\n"


def noise(count):
    """Bytes that do not compress: those of the page's example."""
    state, data = 1, bytearray()
    for _ in range(count):
        state = (state * 1664525 + 1013904223) % (1 << 32)
        data.append(state >> 24)
    return bytes(data)


def page_example(introduction):
    """The bytes of the dump that follows this text on the page, and the offset of its first line."""
    text = PAGE.read_text("utf-8")
    dump = text[text.index(introduction) :].split("```\n")[1]
    data = bytearray()
    for line in dump.splitlines():
        # The offset, sixteen bytes in two halves, and their characters.
        data += bytes.fromhex(line.strip().partition("  ")[2][:49])
    return bytes(data), int(dump.split()[0], 16)


class Arrived:
    """A connection on which everything has arrived and nothing else will."""

    def __init__(self, data):
        here, there = socket.socketpair()
        self.here = here
        self.feeder = threading.Thread(target=self.feed, args=(there, data), daemon=True)
        self.feeder.start()

    @staticmethod
    def feed(there, data):
        with contextlib.suppress(OSError), there:
            there.sendall(data)

    def recv(self, count):
        return self.here.recv(count)

    def settimeout(self, seconds):
        self.here.settimeout(seconds)

    def setsockopt(self, *_):
        """There is no such option on a pair of sockets."""

    def close(self):
        self.here.close()
        self.feeder.join()


@contextlib.contextmanager
def arrived(data):
    with contextlib.closing(Arrived(data)) as stream:
        yield wire.Connection(stream, 10)


def read_message(data):
    with arrived(data) as connection:
        return connection.read_message()


def header_of(kind, file_size, compressed, compressed_size=None):
    sizes = f"<FileSize>{file_size}</FileSize><Compressed>{compressed}</Compressed>"
    if compressed_size is not None:
        sizes += f"<CompressedSize>{compressed_size}</CompressedSize>"
    return f"<root><DataType>{kind}</DataType>{sizes}</root>".encode() + b"\0"


class Page(unittest.TestCase):
    """What the peer writes is what the page shows, and what the page shows is read."""

    def same(self, introduction, written):
        self.assertEqual(page_example(introduction)[0], written)

    def test_xml_strings(self):
        self.same("An XML string message of the empty tree", wire.encode_xml_message([]))
        tree = [("Name", "Zoë & Bob"), ("Pen", [("Width", "2")]), ("Note", "")]
        self.same("An XML string message with `Name`", wire.encode_xml_message(tree))
        example, _ = page_example("An XML string message with `Name`")
        self.assertEqual(read_message(example), ([("DataType", "0"), *tree], b""))

    def test_raw_data(self):
        introduction = "Four bytes of raw data"
        self.same(introduction, wire.encode_raw_message(b"\xde\xad\xbe\xef", [("Id", "7")]))
        self.assertEqual(read_message(page_example(introduction)[0])[1], b"\xde\xad\xbe\xef")

    def test_files(self):
        self.same("The file `Hello, peer!` LF with", wire.encode_file_message(HELLO, [("Id", "7")]))
        self.same("A file without content. Nothing", wire.encode_file_message(b""))
        self.assertEqual(read_message(page_example("The file `Hello, peer!` LF with")[0])[1], HELLO)
        self.assertEqual(read_message(page_example("A file without content. Nothing")[0])[1], b"")

    def test_compressed_files(self):
        tree, content = read_message(page_example("A file that holds the line")[0])
        self.assertEqual(content, HELLO * 4)
        self.assertEqual(tree[-1], ("CompressedSize", "30"))
        self.assertEqual(read_message(page_example("A file without content, compressed")[0])[1], b"")

    def test_two_pieces(self):
        content = noise(100000)
        head, _ = page_example("A compressed file of two pieces")
        end, _ = page_example("The end of its first piece")
        last, last_offset = page_example("And its last 16 bytes")
        tree, _, body = head.partition(b"\0")
        self.assertEqual(wire.size_of(wire.parse_document(tree), "CompressedSize"), last_offset + len(last))
        self.assertEqual(zlib.decompressobj().decompress(body), content[: len(body) - 7])
        filler = end.index(bytes(6))
        sums = {zlib.adler32(content[:count]).to_bytes(4, "big"): count for count in range(60000, wire.PIECE)}
        first = sums[end[filler - 4 : filler]]
        self.assertEqual(zlib.adler32(content[first:]).to_bytes(4, "big"), last[-4:])
        begins = end[end.index(b"\x78\x9c", filler) :]
        self.assertEqual(zlib.decompressobj().decompress(begins), content[first : first + len(begins) - 7])

    def test_datagram(self):
        self.same("A datagram with the tree", wire.encode_tree_datagram([("Id", "7")]))
        self.assertEqual(wire.parse_tree_datagram(page_example("A datagram with the tree")[0]), [("Id", "7")])

    def test_strings(self):
        block = PAGE.read_text("utf-8").split("There is no length before the text")[1].split("```\n")[1]
        written = {}
        for line in block.splitlines():
            written[line.split("  ")[0]] = bytes.fromhex(line.split("  ")[0])
        self.assertEqual(list(written.values()), [b"abc\0", "5 €\0".encode(), b"\0"])


class XmlForm(unittest.TestCase):
    def refused(self, text):
        with self.assertRaises(wire.ProtocolError, msg=text):
            wire.parse_document(text if isinstance(text, bytes) else text.encode())

    def test_trees_come_back(self):
        for tree in (
            [],
            [("A", "<>&amp;\"'")],
            [("A", " \t\n5 ")],
            [("A", "1"), ("B", "2"), ("A", "3")],
            [("A", [("B", [("C", [("D", "\U0001f600")])])])],
        ):
            self.assertEqual(wire.parse_document(wire.encode_document(tree)), tree)

    def test_deep_trees_are_read(self):
        depth = 63
        tree = wire.parse_document(b"<root>" + b"<A>" * depth + b"</A>" * depth + b"</root>")
        for _ in range(depth - 1):
            tree = tree[0][1]
        self.assertEqual(tree, [("A", "")])

    def test_white_space_between_elements_is_nothing(self):
        self.assertEqual(wire.parse_document(b"<root>\n  <A> 1 </A>\n</root>\n"), [("A", " 1 ")])

    def test_what_is_no_document_is_refused(self):
        for text in ("", "root", "<root>", "</root>", "<root></rot>", "<roots></roots>", "<root></root>" * 2):
            self.refused(text)
        for text in ("<root a='1'></root>", "<root><!-- --></root>", "<root>&amp;</root>", "<root><A>&amp</A></root>"):
            self.refused(text)
        for text in ("<root><A>1<B>2</B></A></root>", "<root><1>2</1></root>", "<root><A></root></A>", "<root><A<"):
            self.refused(text)
        for text in ("<root><A>&#65;</A></root>", "<root><A>]]></A></root>", "<root><A>\x01</A></root>", "<root/>x"):
            self.refused(text)
        for text in (" <?xml version='1.0'?><root/>", "<root><A></A/></root>", "<root><A></B></root>", "<root><é/>"):
            self.refused(text)
        self.refused("<root>" + "<A>" * 64 + "</A>" * 64 + "</root>")

    def test_what_is_accepted_beyond_the_written_form(self):
        for text in (
            "<?xml version='1.0' encoding=\"UTF-8\" standalone = 'no' ?>\n<root ><A>'\"></A ></root>",
            "<root><A>&apos;&quot;&gt;</A></root>",
        ):
            self.assertEqual(wire.parse_document(text.encode()), [("A", "'\">")])
        self.assertEqual(wire.parse_document(b"<root/>"), [])
        self.assertEqual(wire.parse_document(b"<root>\n<A />\n</root>"), [("A", "")])

    def test_a_broken_sequence_is_replaced(self):
        self.assertEqual(wire.parse_document(b"<root><A>1\xff2</A></root>"), [("A", "1\ufffd2")])

    def test_what_xml_cannot_carry_is_replaced(self):
        written = wire.encode_document([("A", "\x01\0\ufffe\x7f")])
        self.assertEqual(written, "<root><A>\ufffd\ufffd\ufffd\x7f</A></root>".encode())

    def test_what_the_form_cannot_hold_is_not_written(self):
        too_deep = "1"
        for _ in range(64):
            too_deep = [("A", too_deep)]
        for tree in (too_deep, [("A b", "")], [("", "")], [("é", "")]):
            with self.assertRaises(wire.ProtocolError):
                wire.encode_document(tree)


class Headers(unittest.TestCase):
    def refused(self, header, body=b""):
        with self.assertRaises(wire.ProtocolError, msg=header):
            read_message(f"<root>{header}</root>".encode() + b"\0" + body)

    def test_integers(self):
        self.assertEqual(wire.integer("007", 32), 7)
        self.assertEqual(wire.integer("-2147483648", 32), -2147483648)
        for text in ("", "12abc", "0x10", "+1", " 1", "1\n", "2147483648", "4294967297", "٣"):
            with self.assertRaises(wire.ProtocolError, msg=text):
                wire.integer(text, 32)

    def test_data_types(self):
        for value in ("", "12abc", "0x10", "+1", " 1", "4294967297", "7", "-1", "<A>0</A>"):
            with self.assertRaises(wire.ProtocolError, msg=value):
                wire.data_type(wire.parse_document(f"<root><DataType>{value}</DataType></root>".encode()))
        self.refused("")
        tree, _ = read_message(b"<root><A>1</A><DataType>0</DataType><DataType>7</DataType></root>\0")
        self.assertEqual(wire.data_type(tree), 0)

    def test_sizes(self):
        for kind in ("1", "2"):
            for sizes in (
                "<Compressed>0</Compressed>",
                "<FileSize>1</FileSize>",
                "<FileSize>1</FileSize><FileSize>2</FileSize><Compressed>0</Compressed>",
                "<FileSize>1</FileSize><Compressed>0</Compressed><Compressed></Compressed>",
                "<FileSize>-1</FileSize><Compressed>0</Compressed>",
                "<FileSize>9223372036854775808</FileSize><Compressed>0</Compressed>",
                "<FileSize>1</FileSize><Compressed>4294967296</Compressed>",
            ):
                self.refused(f"<DataType>{kind}</DataType>{sizes}", b"1")
        self.refused("<DataType>1</DataType><FileSize>1</FileSize><Compressed>1</Compressed>", b"1")
        for size in ("0", "2147483648"):
            with self.assertRaisesRegex(wire.ProtocolError, f"raw data of {size} bytes"):
                read_message(header_of(2, size, "0") + b"1")

    def test_raw_data_is_never_compressed(self):
        header = b"<root><A/><Compressed>1</Compressed><FileSize>2</FileSize><DataType>2</DataType></root>\0"
        self.assertEqual(read_message(header + b"ab")[1], b"ab")

    def test_equal_sizes_may_be_there_twice(self):
        children = "<FileSize>2</FileSize><Compressed>0</Compressed>"
        header = f"<root><DataType>2</DataType>{children}<FileSize>02</FileSize>{children}</root>".encode() + b"\0"
        self.assertEqual(read_message(header + b"ab")[1], b"ab")

    def test_a_file_is_compressed_unless_it_is_not(self):
        body = zlib.compress(HELLO)
        for compressed in ("2", "-1"):
            self.assertEqual(read_message(header_of(1, 13, compressed, len(body)) + body)[1], HELLO)

    def test_own_keys_are_not_written(self):
        for key in wire.OWN_KEYS:
            with self.assertRaises(wire.ProtocolError):
                wire.encode_raw_message(b"a", [(key, "0")])
        with self.assertRaises(wire.ProtocolError):
            wire.encode_xml_message([("DataType", "0")])
        tree = [("FileSize", "own"), ("FileSize", "")]
        self.assertEqual(read_message(wire.encode_xml_message(tree))[0][1:], tree)


class Bodies(unittest.TestCase):
    SIZES = (0, 1, 65535, 65536, 65537, 1000000)

    def test_all_lengths_come_back(self):
        for size in self.SIZES:
            for content in (noise(size), bytes(size)):
                for compress in (False, True):
                    message = wire.encode_file_message(content, [("A", "1")], compress)
                    self.assertEqual(read_message(message)[1], content)
                if size:
                    self.assertEqual(read_message(wire.encode_raw_message(content))[1], content)

    def test_each_piece_is_a_run_and_filler(self):
        for level, limit in ((0, 1 << 30), (1, 1000), (6, 1 << 30), (9, 40000)):
            content = noise(300000)
            body, found = wire.compress_body(content, level, limit), b""
            for start in range(0, len(body), wire.PIECE):
                decoder = zlib.decompressobj()
                part = decoder.decompress(body[start : start + wire.PIECE])
                self.assertTrue(decoder.eof)
                self.assertTrue(0 < len(part) <= limit)
                self.assertEqual(decoder.unused_data.strip(b"\0"), b"")
                found += part
            self.assertEqual(decoder.unused_data, b"")
            self.assertEqual(found, content)

    def test_filler_is_skipped_whatever_it_is(self):
        first = zlib.compress(b"one")
        body = first + b"\xff" * (wire.PIECE - len(first)) + zlib.compress(b"")
        self.assertEqual(b"".join(wire.decompress_piece(body[: wire.PIECE])), b"one")
        self.assertEqual(b"".join(wire.decompress_piece(body[wire.PIECE :])), b"")

    def test_broken_pieces_are_refused(self):
        whole = zlib.compress(noise(1000))
        preset = zlib.compressobj(zdict=b"Hello")
        for piece in (
            b"",
            whole[:-1],
            whole[:500],
            whole[:-1] + bytes([whole[-1] ^ 1]),
            b"\xff" + whole[1:],
            preset.compress(b"Hello") + preset.flush(),
        ):
            with self.assertRaises(wire.ProtocolError):
                list(wire.decompress_piece(piece))

    def test_one_run_over_two_pieces_is_refused(self):
        body = zlib.compress(noise(100000))
        with self.assertRaises(wire.ProtocolError):
            read_message(header_of(1, 100000, "1", len(body)) + body)

    def test_a_file_holds_what_its_header_says_or_less(self):
        body = zlib.compress(HELLO)
        self.assertEqual(read_message(header_of(1, 14, "1", len(body)) + body)[1], HELLO)
        with self.assertRaisesRegex(wire.ProtocolError, "more than its header"):
            read_message(header_of(1, 12, "1", len(body)) + body)

    def test_no_compressed_body_is_an_empty_file(self):
        self.assertEqual(read_message(header_of(1, 5, "1", 0) + b"x")[1], b"")

    def test_a_compressed_body_has_32_bits(self):
        self.assertEqual(wire.compressed_size((1 << 32) - 1), (1 << 32) - 1)
        with self.assertRaises(wire.ProtocolError):
            wire.compressed_size(1 << 32)

    def test_what_ends_early_is_refused(self):
        raw, file, xml = wire.encode_raw_message(b"abc"), wire.encode_file_message(b"abc"), wire.encode_xml_message([])
        for message in (raw, file, xml):
            with self.assertRaises(wire.ProtocolError):
                read_message(message[:-1])

    def test_nothing_beyond_the_message_is_read(self):
        compressed = wire.encode_file_message(noise(70000), compress=True)
        others = wire.encode_raw_message(b"a") + wire.encode_xml_message([])
        with arrived(compressed + others + b"abc\0") as connection:
            self.assertEqual(connection.read_message()[1], noise(70000))
            self.assertEqual(connection.read_message()[1], b"a")
            self.assertEqual(connection.read_message(), ([("DataType", "0")], b""))
            self.assertEqual(connection.read_string(), "abc")


class Strings(unittest.TestCase):
    def test_a_broken_sequence_is_replaced(self):
        with arrived(b"a\xffb\0\0") as connection:
            self.assertEqual([connection.read_string(), connection.read_string()], ["a\ufffdb", ""])

    def test_a_text_without_end_is_refused(self):
        with arrived(b"abc") as connection, self.assertRaises(wire.ProtocolError):
            connection.read_string()


class Datagrams(unittest.TestCase):
    def test_lengths(self):
        empty = len(wire.encode_document([("A", "")]))
        longest = [("A", "x" * (511 - empty))]
        self.assertEqual(len(wire.encode_tree_datagram(longest)), 512)
        self.assertEqual(wire.parse_tree_datagram(wire.encode_tree_datagram(longest)), longest)
        with self.assertRaises(wire.ProtocolError):
            wire.encode_tree_datagram([("A", "x" * (512 - empty))])
        for data in (b"", bytes(513)):
            with self.assertRaises(wire.ProtocolError):
                wire.check_datagram(data)

    def test_the_zero_byte_may_be_missing(self):
        self.assertEqual(wire.parse_tree_datagram(b"<root><A>1</A></root>"), [("A", "1")])
        self.assertEqual(wire.parse_tree_datagram(b"<root><A>1</A></root>\0rest"), [("A", "1")])
        document = wire.encode_document([("A", "x" * 492)])
        self.assertEqual(len(document), 512)
        self.assertEqual(wire.parse_tree_datagram(document), [])


if __name__ == "__main__":
    unittest.main()
