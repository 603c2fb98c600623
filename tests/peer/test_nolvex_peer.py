#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Both ends of an exchange are the peer's program."""
import contextlib
import io
import tempfile
import threading
import unittest
from pathlib import Path

import nolvex_peer as peer


class Program(unittest.TestCase):
    """The two run in two threads."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def file(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode("ascii"))
        return str(path)

    def exchange(self, receive, send):
        """Returns the output of the receiver. Both ends must succeed."""
        status = []
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            waits = [receive[0], "--listen", "127.0.0.1", "0", *receive[1:]]
            thread = threading.Thread(target=lambda: status.append(peer.main(waits)))
            thread.start()
            while thread.is_alive() and "\n" not in printed.getvalue():
                thread.join(0.01)
            port = printed.getvalue().split()[1]
            status.append(peer.main([send[0], "127.0.0.1", port, *send[1:]]))
            thread.join()
        self.assertEqual(status, [0, 0], printed.getvalue())
        return printed.getvalue().splitlines()[1:]

    def test_strings(self):
        text = self.file("text", "\\ä\U0001f600\n~".encode())
        printed = self.exchange(["receive-strings", "3"], ["send-strings", "", "a b", "@" + text])
        self.assertEqual(printed, ["", "a b", "\\u{5C}\\u{E4}\\u{1F600}\\u{A}~"])

    def test_messages(self):
        document = "<Id>7</Id><Pen><Width>2\\u{A}</Width><Pen></Pen></Pen></root>"
        tree = self.file("tree", "<root>\n" + document.replace("\\u{A}", "\n"))
        content = bytes(70000)
        body = self.file("body", content)
        items = ["xml:" + tree, f"raw:{body},{tree}", f"compressed:{body}", f"file:{body}"]
        printed = self.exchange(["receive-messages", str(self.folder), "4"], ["send-messages", *items])
        self.assertEqual(printed[:2], ["1: xml", "  <root><DataType>0</DataType>" + document])
        for name in ("2", "3", "4"):
            self.assertEqual((self.folder / name).read_bytes(), content)
        self.assertRegex(printed[5], "<Compressed>1</Compressed><CompressedSize>[0-9]+</CompressedSize></root>")

    def test_datagrams(self):
        tree, body = self.file("tree", "<root><Id>7</Id></root>"), self.file("body", bytes(range(256)) * 2)
        receive = ["receive-datagrams", str(self.folder), "xml", "bytes"]
        printed = self.exchange(receive, ["send-datagrams", "xml:" + tree, "bytes:" + body])
        self.assertEqual(printed, ["1: xml", "  <root><Id>7</Id></root>", "2: bytes"])
        self.assertEqual((self.folder / "2").read_bytes(), bytes(range(256)) * 2)

    def test_a_refusal_is_status_1(self):
        broken = self.file("broken", "<root></rot>\0")
        with self.assertRaisesRegex(AssertionError, "refused: "):
            self.exchange(["receive-messages", str(self.folder), "1"], ["send-messages", "bytes:" + broken])
        with contextlib.redirect_stdout(io.StringIO()) as printed:
            self.assertEqual(peer.main(["send-messages", "127.0.0.1", "1", "xml:" + broken + ".missing"]), 1)
        self.assertRegex(printed.getvalue(), "refused: ")


if __name__ == "__main__":
    unittest.main()
