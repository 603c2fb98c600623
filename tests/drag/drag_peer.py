# SPDX-License-Identifier: MIT
"""A window that takes data of the format "Quillane-Rgb" and gives data of that format, without the library. It has five
fields beside each other. Data dropped on the first one is written as a line in hexadecimal digits. A drag from one of the
others gives 16 bytes, 3 bytes, 3 megabytes that begin with 16 other bytes, or bytes of another format. Lines:

    area X Y WIDTH HEIGHT
    got LENGTH HEX          of at most the first 64 bytes
"""

import struct

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk  # noqa: E402

FORMAT = "Quillane-Rgb"
OTHER_FORMAT = "application/x-other"
FIELD_WIDTH, FIELD_HEIGHT = 80, 80


def payloads():
    return [
        (FORMAT, struct.pack("<4f", 0.25, -3.0, 42.0, 1.0)),
        (FORMAT, b"\x01\x02\x03"),
        (FORMAT, struct.pack("<4f", 0.5, 1.5, -1.0, 0.0) + bytes(3 << 20)),
        (OTHER_FORMAT, struct.pack("<4f", 1.0, 1.0, 1.0, 1.0)),
    ]


def target(name):
    return [Gtk.TargetEntry.new(name, 0, 0)]


class Peer(Gtk.Window):
    def __init__(self):
        super().__init__(title="Drag peer")
        self.place = None
        self.fields = Gtk.Box()
        self.add(self.fields)
        self.add_field().connect("drag-data-received", self.take)
        for kind, payload in payloads():
            field = self.add_field()
            field.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, target(kind), Gdk.DragAction.COPY)
            field.connect("drag-data-get", self.give, kind, payload)
        self.fields.get_children()[0].drag_dest_set(Gtk.DestDefaults.ALL, target(FORMAT), Gdk.DragAction.COPY)
        self.connect("destroy", Gtk.main_quit)
        self.move(600, 100)
        self.show_all()
        GLib.timeout_add(100, self.report_place)

    def add_field(self):
        field = Gtk.EventBox()
        field.set_size_request(FIELD_WIDTH, FIELD_HEIGHT)
        self.fields.pack_start(field, False, False, 0)
        return field

    def report_place(self):
        _, x, y = self.get_window().get_origin()
        place = (x, y, FIELD_WIDTH * len(self.fields.get_children()), FIELD_HEIGHT)
        if place != self.place:
            self.place = place
            print("area", *place, flush=True)
        return True

    @staticmethod
    def take(_field, _context, _x, _y, data, _info, _time):
        received = data.get_data()
        print("got", len(received), received[:64].hex(), flush=True)

    @staticmethod
    def give(_field, _context, data, _info, _time, kind, payload):
        data.set(Gdk.Atom.intern(kind, False), 8, payload)


peer = Peer()
Gtk.main()
