# SPDX-License-Identifier: MIT
"""Sends arrays to the program that the variable NOLVEX_PICTURE_RECEIVER names, with words between line ends, and compares
what the program has received bit by bit."""
import os
import pathlib
import queue
import socket
import subprocess
import tempfile
import threading
import time
import unittest

import numpy

import nolvex_viewer

FORMATS = [(numpy.uint8, 0), (numpy.uint16, 3), (numpy.float16, 6), (numpy.float32, 9)]
PATIENCE = 60


class Receiver:
    """A viewer without a window."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory()
        command = os.environ["NOLVEX_PICTURE_RECEIVER"].split("\n")
        self.process = subprocess.Popen(command + ["."], stdout=subprocess.PIPE, cwd=self.folder.name)
        self.lines = queue.Queue()
        self.thread = threading.Thread(target=self._read, daemon=True)
        self.thread.start()
        self.port = int(self.line("port").split()[1])

    def _read(self):
        for line in self.process.stdout:
            self.lines.put(line.decode("utf-8").rstrip("\r\n"))

    def line(self, beginning, end=""):
        """Returns the next line that begins and ends so, and drops those before."""
        until = time.monotonic() + PATIENCE
        while True:
            line = self.lines.get(timeout=max(0.01, until - time.monotonic()))
            if line.startswith(beginning) and line.endswith(end):
                return line

    def complete(self, name):
        """Waits for the complete picture. Returns its width, height, format, gamma and bytes."""
        words = self.line("received", " complete " + name).split()
        pixels = (pathlib.Path(self.folder.name) / words[1]).read_bytes()
        return int(words[2]), int(words[3]), int(words[4]), float(words[5]), pixels

    def end(self):
        with nolvex_viewer.Viewer(port=self.port) as viewer:
            viewer.show("end", numpy.zeros((1, 1), numpy.uint8))
            viewer.close("end")
        self.process.wait(PATIENCE)
        self.thread.join(PATIENCE)
        self.process.stdout.close()
        self.folder.cleanup()


class ViewerTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.receivers = [Receiver(), Receiver()]

    @classmethod
    def tearDownClass(cls):
        for receiver in cls.receivers:
            receiver.end()

    def setUp(self):
        self.receiver = self.receivers[0]
        self.viewer = nolvex_viewer.Viewer(port=self.receiver.port)
        self.addCleanup(self.viewer.disconnect)

    def assert_received(self, name, array, receiver=None):
        width, height, _, _, pixels = (receiver or self.receiver).complete(name)
        self.assertEqual((height, width), array.shape[:2])
        self.assertEqual(pixels, numpy.ascontiguousarray(array).tobytes())

    def test_arrays_of_each_type_arrive_bit_by_bit(self):
        random = numpy.random.default_rng(1)
        for dtype, first_format in FORMATS:
            for place, channels in enumerate((1, 3, 4)):
                name = f"{numpy.dtype(dtype).name} {channels}"
                array = random.integers(0, 256, (7, 5 * channels * numpy.dtype(dtype).itemsize), numpy.uint8)
                array = array.view(dtype).reshape(7, 5, channels)
                self.viewer.show(name, array)
                width, height, pixel_format, gamma, pixels = self.receiver.complete(name)
                self.assertEqual((width, height, pixel_format), (5, 7, first_format + place))
                self.assertEqual(gamma, 1.0 if first_format < 6 else 2.2)
                self.assertEqual(pixels, array.tobytes())

    def test_large_arrays_arrive_bit_by_bit(self):
        array = numpy.random.default_rng(2).random((700, 1100, 3), numpy.float32)
        self.viewer.show("large", array)
        self.assert_received("large", array)

    def test_special_values_arrive(self):
        array = numpy.array([[numpy.inf, -numpy.inf, numpy.nan, -0.0, 1e-45]], numpy.float32)
        self.viewer.show("special", array)
        self.assert_received("special", array)

    def test_doubles_arrive_as_floats(self):
        array = numpy.random.default_rng(3).random((3, 4))
        self.viewer.show("doubles", array)
        self.assert_received("doubles", array.astype(numpy.float32))

    def test_strided_and_foreign_arrays_arrive(self):
        array = numpy.arange(4 * 6 * 3, dtype=numpy.uint16).reshape(4, 6, 3)
        self.viewer.show("turned", array[::-1, ::2])
        self.assert_received("turned", array[::-1, ::2])
        self.viewer.show("big-endian", array.astype(">u2"))
        self.assert_received("big-endian", array)

    def test_rectangles_arrive_in_their_place(self):
        whole = numpy.zeros((40, 30, 3), numpy.float32)
        tile = numpy.random.default_rng(4).random((10, 20, 3), numpy.float32)
        self.viewer.create("tiles", 30, 40)
        self.viewer.update("tiles", 7, 25, tile, progress=1)
        whole[25:35, 7:27] = tile
        self.assert_received("tiles", whole)

    def test_shown_pictures_can_be_updated(self):
        array = numpy.full((4, 4), 7, numpy.uint8)
        self.viewer.show("changed", array)
        self.assert_received("changed", array)
        self.viewer.update("changed", 1, 2, numpy.full((1, 2), 9, numpy.uint8))
        array[2, 1:3] = 9
        self.assert_received("changed", array)

    def test_gamma_is_told(self):
        self.viewer.show("gamma", numpy.zeros((1, 1), numpy.float32), gamma=nolvex_viewer.ENCODED)
        self.assertEqual(self.receiver.complete("gamma")[3], 1.0)

    def test_alpha_is_told(self):
        array = numpy.zeros((1, 1, 4), numpy.float32)
        for alpha, expected in ((None, "straight"), (nolvex_viewer.STRAIGHT, "straight"),
                                (nolvex_viewer.ASSOCIATED, "associated")):
            name = f"alpha {alpha}"
            self.viewer.show(name, array, alpha=alpha)
            line = self.receiver.line("received", " complete " + name)
            self.assertEqual(line.split()[7], expected)
        self.viewer.create("created alpha", 1, 1, channels=4, alpha=nolvex_viewer.ASSOCIATED)
        self.assertEqual(self.receiver.line("received", "created alpha").split()[7], "associated")
        with self.assertRaises(ValueError):
            self.viewer.show("bad", array, alpha="premultiplied")

    def test_names_of_all_languages_arrive(self):
        for name in ("Zürich", "縦横", "<a> & b", "../../evil"):
            self.viewer.show(name, numpy.zeros((1, 1), numpy.uint8))
            self.receiver.complete(name)

    def test_progress_is_told(self):
        self.viewer.create("slow", 2, 2)
        self.receiver.line("received", "slow")
        self.viewer.progress("slow", 0.25)
        self.assertEqual(self.receiver.line("progressed"), "progressed 0.250000 slow")

    def test_closed_pictures_are_told_and_unknown(self):
        self.viewer.show("closed", numpy.zeros((1, 1), numpy.uint8))
        self.viewer.close("closed")
        self.receiver.line("closed closed")
        with self.assertRaisesRegex(nolvex_viewer.ViewerError, "no open picture"):
            self.viewer.update("closed", 0, 0, numpy.zeros((1, 1), numpy.uint8))

    def test_senders_that_die_are_told(self):
        viewer = nolvex_viewer.Viewer(port=self.receiver.port)
        viewer.create("half", 2, 2)
        viewer.disconnect()
        self.receiver.line("lost half")

    def test_refusals_are_raised_and_the_connection_goes_on(self):
        self.viewer.create("small", 2, 2, numpy.uint8, 1)
        with self.assertRaisesRegex(nolvex_viewer.ViewerError, "not inside"):
            self.viewer.update("small", 1, 1, numpy.zeros((2, 2), numpy.uint8))
        with self.assertRaisesRegex(nolvex_viewer.ViewerError, "not inside"):
            self.viewer.update("small", 0, 0, numpy.zeros((3000, 3000), numpy.uint8))
        with self.assertRaisesRegex(nolvex_viewer.ViewerError, "Name"):
            self.viewer.show("two\nlines", numpy.zeros((1, 1), numpy.uint8))
        self.viewer.update("small", 0, 0, numpy.ones((2, 2), numpy.uint8), progress=1)
        self.assert_received("small", numpy.ones((2, 2), numpy.uint8))

    def test_arrays_that_are_no_pictures_are_not_sent(self):
        for array in (numpy.zeros(3), numpy.zeros((2, 2, 2)), numpy.zeros((0, 2)), numpy.zeros((2, 2), numpy.int64)):
            with self.assertRaises(ValueError):
                self.viewer.show("wrong", array)
        self.viewer.create("floats", 2, 2)
        with self.assertRaisesRegex(ValueError, "3 channels of float32"):
            self.viewer.update("floats", 0, 0, numpy.zeros((2, 2), numpy.uint8))

    def test_two_viewers_get_their_own_pictures(self):
        other = nolvex_viewer.Viewer(port=self.receivers[1].port)
        self.addCleanup(other.disconnect)
        for value, viewer in enumerate((self.viewer, other)):
            viewer.show("both", numpy.full((2, 3), value, numpy.uint8))
        for value, receiver in enumerate(self.receivers):
            self.assert_received("both", numpy.full((2, 3), value, numpy.uint8), receiver)


class ConnectionTest(unittest.TestCase):
    def test_ports_without_a_viewer_are_named(self):
        with socket.create_server(("127.0.0.1", 0)) as server:
            port = server.getsockname()[1]
        with self.assertRaisesRegex(nolvex_viewer.ViewerError, f"port {port}"):
            nolvex_viewer.Viewer(port=port)

    def test_other_servers_are_noticed(self):
        for answer in (b"HTTP/1.1 400 Bad Request\r\n\r\n\0", b"\0", b"", b"\xff\0"):
            with socket.create_server(("127.0.0.1", 0)) as server:
                viewer = nolvex_viewer.Viewer(port=server.getsockname()[1])
                peer = server.accept()[0]
                peer.sendall(answer)
                peer.shutdown(socket.SHUT_WR)
                with self.assertRaises(nolvex_viewer.ViewerError):
                    viewer.close("a")
                viewer.disconnect()
                peer.close()

    def test_viewers_that_do_not_answer_are_given_up(self):
        with socket.create_server(("127.0.0.1", 0)) as server:
            viewer = nolvex_viewer.Viewer(port=server.getsockname()[1], timeout=0.5)
            with self.assertRaisesRegex(nolvex_viewer.ViewerError, "does not answer"):
                viewer.close("a")
            viewer.disconnect()

    def test_first_bytes_are_those_of_the_description(self):
        with socket.create_server(("127.0.0.1", 0)) as server:
            viewer = nolvex_viewer.Viewer(port=server.getsockname()[1])
            peer = server.accept()[0]
            peer.sendall(b"<root><DataType>0</DataType><Version>1</Version><Result>ok</Result></root>\0")
            viewer.show("tiny", numpy.array([[[255, 0, 0]]], numpy.uint8))
            viewer.disconnect()
            received = b"".join(iter(lambda: peer.recv(65536), b""))
            peer.close()
        self.assertEqual(
            received,
            b"<root><DataType>2</DataType><Version>1</Version><Command>open</Command><Name>tiny</Name><Width>1</Width>"
            b"<Height>1</Height><Format>UINT8_RGB</Format><FileSize>3</FileSize><Compressed>0</Compressed></root>\0"
            b"\xff\0\0",
        )


if __name__ == "__main__":
    unittest.main()
