# SPDX-License-Identifier: MIT
"""portal.py: plays the part of the desktop's portal for pictures of the screen. Reads from its standard input how it
answers from then on: "picture" with the outputs as they are, "refuse" as a user who refuses, "wait" not at all. Prints
each line, and then what it is asked."""

import struct
import subprocess
import sys
import zlib

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
INTERFACES = """<node>
  <interface name="org.freedesktop.portal.Screenshot">
    <method name="Screenshot">
      <arg type="s" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.portal.Request"><method name="Close"/></interface>
</node>"""

SUCCESS, REFUSED = 0, 1


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(ppm):
    """Returns the picture as a PNG file with 8 bits a channel."""
    width, height = (int(word) for word in ppm.split(maxsplit=3)[1:3])
    stride = 3 * width
    pixels = ppm[-stride * height:]
    rows = b"".join(b"\0" + pixels[start:start + stride] for start in range(0, len(pixels), stride))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))


class Portal:
    def __init__(self, folder):
        self.folder = folder
        self.manner = "wait"
        self.screenshot, self.request = Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.bus.register_object("/org/freedesktop/portal/desktop", self.screenshot, self.on_call)
        Gio.bus_own_name_on_connection(self.bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)

    def on_line(self, channel, _condition):
        line = channel.readline().strip()
        if not line:
            sys.exit(0)
        self.manner = line
        print(line, flush=True)
        return True

    def on_call(self, _bus, sender, path, _interface, method, parameters, invocation):
        if method == "Close":
            invocation.return_value(None)
            print("closed", flush=True)
            return
        token = parameters.unpack()[1]["handle_token"]
        handle = f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}/{token}"
        self.bus.register_object(handle, self.request, self.on_call)
        invocation.return_value(GLib.Variant("(o)", (handle,)))
        if self.manner == "picture":
            self.respond(sender, handle, SUCCESS, {"uri": GLib.Variant("s", self.picture())})
        elif self.manner == "refuse":
            self.respond(sender, handle, REFUSED, {})
        print("asked", flush=True)

    def picture(self):
        """Writes a picture of the outputs as a PNG file, and a copy for the test."""
        raw = subprocess.run(["grim", "-t", "ppm", "-"], capture_output=True, check=True).stdout
        with open(f"{self.folder}/shot.ppm", "wb") as file:
            file.write(raw)
        with open(f"{self.folder}/shot.png", "wb") as file:
            file.write(png(raw))
        return f"file://{self.folder}/shot.png"

    def respond(self, sender, handle, code, results):
        self.bus.emit_signal(sender, handle, "org.freedesktop.portal.Request", "Response",
                             GLib.Variant("(ua{sv})", (code, results)))


def main():
    portal = Portal(GLib.get_current_dir())
    GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, portal.on_line)
    GLib.MainLoop().run()


main()
