# SPDX-License-Identifier: MIT
"""Shows NumPy arrays in a viewer that listens (nolvex-viewer --listen), also while they are still computed.

    import nolvex_viewer, numpy

    with nolvex_viewer.Viewer() as viewer:
        viewer.show("noise", numpy.random.rand(480, 640, 3))

        viewer.create("render", 640, 480, numpy.float32, channels=3)
        for y in range(0, 480, 32):
            viewer.update("render", 0, y, render_rows(y, y + 32), progress=(y + 32) / 480)

An array has the shape (height, width) or (height, width, channels) with 1, 3 or 4 channels, and its first row is the top
of the picture. Its numbers are uint8, uint16, float16 or float32; float64 is sent as float32. Floats are linear light
and integers are encoded for a display, unless `gamma` says otherwise. The fourth channel is alpha. Colours are not
multiplied by alpha, unless `alpha` is ASSOCIATED; most renderers multiply them.

Written from docs/picture-protocol.md. Needs nothing but Python 3.8 and NumPy.
"""
import socket
import xml.etree.ElementTree

import numpy

DEFAULT_PORT = 41230

LINEAR = 2.2
ENCODED = 1.0

STRAIGHT = "straight"
ASSOCIATED = "associated"

_CHANNELS = {1: "GREY", 3: "RGB", 4: "RGBA"}
_NUMBERS = {"uint8": "UINT8", "uint16": "UINT16", "float16": "FLOAT16", "float32": "FLOAT32"}
_BAND_BYTES = 1 << 19
_MAX_MISSING_ANSWERS = 4
_MAX_ANSWER_BYTES = 65536


class ViewerError(Exception):
    """The viewer refused a command, or the connection to it ended. The text says why."""


class Viewer:
    """A connection to a viewer. One thread at a time may use it.

    `timeout` is the longest time, in seconds, in which the viewer may take nothing or not answer. After a command that
    the viewer refused, the connection can still be used.
    """

    def __init__(self, host="127.0.0.1", port=DEFAULT_PORT, timeout=30):
        self._received = b""
        self._missing_answers = 0
        self._formats = {}
        try:
            self._socket = socket.create_connection((host, port), timeout)
        except OSError as failure:
            raise ViewerError(f"There is no viewer that listens on port {port} of {host}.") from failure
        self._socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)

    def __enter__(self):
        return self

    def __exit__(self, *exception):
        self.disconnect()

    def show(self, name, array, gamma=None, alpha=None):
        """Shows a whole picture, in place of an open picture of the same name."""
        pixels = _pixels_of(array)
        height, width, channels = pixels.shape
        if pixels.nbytes <= _BAND_BYTES:
            self._formats[name] = pixels.dtype, channels
            self._send(_command("open", name, _size(width, height) + _format(pixels.dtype, channels, gamma, alpha)), pixels)
            self._read_answers(0)
            return
        self.create(name, width, height, pixels.dtype, channels, gamma, alpha)
        self.update(name, 0, 0, pixels, progress=1)

    def create(self, name, width, height, dtype=numpy.float32, channels=3, gamma=None, alpha=None):
        """Opens a picture whose values are all 0 until they are updated."""
        dtype = _wire_type(numpy.dtype(dtype))
        if channels not in _CHANNELS:
            raise ValueError(f"A picture has 1, 3 or 4 channels, not {channels}.")
        self._ask(_command("create", name, _size(width, height) + _format(dtype, channels, gamma, alpha)))
        self._formats[name] = dtype, channels

    def update(self, name, x, y, array, progress=None):
        """Replaces the rectangle whose top left pixel is (x, y). Numbers and channels must be those of the picture.
        `progress` is the share of the picture that is done afterwards, from 0 to 1, where 1 stands for a complete
        picture."""
        pixels = _pixels_of(array)
        height, width, channels = pixels.shape
        expected = self._formats.get(name, (pixels.dtype, channels))
        if expected != (pixels.dtype, channels):
            raise ValueError(f"The picture has {expected[1]} channels of {expected[0].name}, and the array "
                             f"{channels} of {pixels.dtype.name}.")
        rows = max(1, _BAND_BYTES // pixels[0].nbytes)
        for top in range(0, height, rows):
            band = pixels[top : top + rows]
            children = [("X", x), ("Y", y + top)] + _size(width, len(band))
            if progress is not None and top + rows >= height:
                children.append(("Progress", _decimal(progress)))
            self._send(_command("update", name, children), band)
            self._read_answers(_MAX_MISSING_ANSWERS)
        self._read_answers(0)

    def progress(self, name, share):
        """Tells how much of the picture is done, from 0 to 1, where 1 stands for a complete picture."""
        self._ask(_command("progress", name, [("Progress", _decimal(share))]))

    def close(self, name):
        """Closes the picture in the viewer."""
        self._ask(_command("close", name, []))
        self._formats.pop(name, None)

    def disconnect(self):
        """Ends the connection. The viewer keeps the pictures."""
        self._socket.close()

    def _ask(self, children):
        self._send(children)
        self._read_answers(0)

    def _send(self, children, pixels=None):
        if pixels is None:
            data = _message([("DataType", 0)] + children)
        else:
            data = _message([("DataType", 2)] + children + [("FileSize", pixels.nbytes), ("Compressed", 0)])
        try:
            self._socket.sendall(data)
            if pixels is not None:
                self._socket.sendall(memoryview(pixels).cast("B"))
        except OSError as failure:
            self.disconnect()
            raise ViewerError("The viewer has ended the connection, or takes no more pixels.") from failure
        self._missing_answers += 1

    def _read_answers(self, may_be_missing):
        """Reads answers until no more than that many are missing. After a refusal all others are read, too, since the
        next command must not be given the answers to these."""
        refusal = None
        while self._missing_answers > may_be_missing:
            answer = self._read_answer()
            self._missing_answers -= 1
            if answer.findtext("Result") != "ok":
                refusal = refusal or answer.findtext("Text") or "The viewer refused, and did not say why."
                may_be_missing = 0
        if refusal:
            raise ViewerError(refusal)

    def _read_answer(self):
        try:
            while b"\0" not in self._received:
                piece = self._socket.recv(4096)
                if not piece or len(self._received) > _MAX_ANSWER_BYTES:
                    raise ViewerError("The viewer has ended the connection.")
                self._received += piece
            text, _, self._received = self._received.partition(b"\0")
            return xml.etree.ElementTree.fromstring(text.decode("utf-8"))
        except (OSError, ValueError, xml.etree.ElementTree.ParseError) as failure:
            self.disconnect()
            raise ViewerError("The viewer does not answer, or its answer cannot be read.") from failure


def _wire_type(dtype):
    """Returns the little-endian type in which the numbers travel."""
    if dtype == numpy.float64:
        dtype = numpy.dtype(numpy.float32)
    if dtype.name not in _NUMBERS:
        raise ValueError(f"A picture is made of uint8, uint16, float16 or float32, not of {dtype.name}.")
    return dtype.newbyteorder("<")


def _pixels_of(array):
    """Returns the array as rows, columns and channels, in the order and with the numbers of the wire."""
    array = numpy.asarray(array)
    if array.ndim == 2:
        array = array[:, :, numpy.newaxis]
    if array.ndim != 3 or array.shape[2] not in _CHANNELS or array.size == 0:
        raise ValueError(f"A picture has rows, columns and 1, 3 or 4 channels, and not the shape {array.shape}.")
    return numpy.ascontiguousarray(array, _wire_type(array.dtype))


def _size(width, height):
    return [("Width", width), ("Height", height)]


def _format(dtype, channels, gamma, alpha):
    if alpha not in (None, STRAIGHT, ASSOCIATED):
        raise ValueError(f"Alpha is STRAIGHT or ASSOCIATED, not {alpha!r}.")
    children = [("Format", f"{_NUMBERS[dtype.name]}_{_CHANNELS[channels]}")]
    if gamma is not None:
        children.append(("Gamma", _decimal(gamma)))
    if alpha is not None:
        children.append(("Alpha", alpha))
    return children


def _decimal(number):
    return f"{float(number):.9f}"


def _command(command, name, children):
    return [("Version", 1), ("Command", command), ("Name", name)] + children


def _message(children):
    text = "".join(f"<{key}>{_escaped(str(value))}</{key}>" for key, value in children)
    return f"<root>{text}</root>".encode("utf-8") + b"\0"


def _escaped(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
