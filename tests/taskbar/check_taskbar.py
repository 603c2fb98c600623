# SPDX-License-Identifier: MIT
"""check_taskbar.py PROGRAM: reads the launcher-entry signals that PROGRAM (NolvexTaskbarSteps) sends over the session
bus, as the docks of desktops do, then runs it where the bus is missing, dead, hanging or dying."""
import contextlib
import os
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

INTERFACE = "com.canonical.Unity.LauncherEntry"
MAX_WAIT = 20  # seconds
# No call may wait for the bus. The limit leaves time to a machine under load.
MAX_CALL = 1.0  # seconds

failures = 0


def check(condition, text):
    global failures
    if not condition:
        failures += 1
        print("FAILED:", text)


class Steps:
    """The program under test, which obeys one line at a time."""

    def __init__(self, program, name=None, **environment):
        """The program learns `name` as its own. A name that is not UTF-8 is given as bytes."""
        env = {key: value for key, value in {**os.environ, **environment}.items() if value is not None}
        env["G_DEBUG"] = "fatal-criticals"
        self.process = subprocess.Popen([name or program], executable=program, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, env=env, text=True)
        self.longest = 0.0

    def do(self, *lines):
        for line in lines:
            start = time.monotonic()
            self.process.stdin.write(line + "\n")
            self.process.stdin.flush()
            watchdog = threading.Timer(MAX_WAIT, self.process.kill)
            watchdog.start()
            answer = self.process.stdout.readline()
            watchdog.cancel()
            self.longest = max(self.longest, time.monotonic() - start)
            check(answer == "done\n", f"{line!r} was answered by {answer!r}")

    def end(self):
        start = time.monotonic()
        self.process.stdin.close()
        try:
            status = self.process.wait(MAX_WAIT)
        except subprocess.TimeoutExpired:
            self.process.kill()
            status = self.process.wait()
        self.process.stdout.close()
        self.longest = max(self.longest, time.monotonic() - start)
        check(status == 0, f"the program ended with status {status}")


class Dock:
    """Listens as a dock does."""

    def __init__(self, bus, name="NolvexTaskbarSteps"):
        self.updates = []
        self.uri = f"application://{name}.desktop"
        bus.signal_subscribe(None, INTERFACE, "Update", None, None, Gio.DBusSignalFlags.NONE, self.on_update)

    def on_update(self, _bus, _sender, path, _interface, _signal, parameters):
        check(parameters.get_type_string() == "(sa{sv})", f"the type is {parameters.get_type_string()}")
        check(path.startswith("/com/canonical/unity/launcherentry/"), f"the path is {path}")
        uri, properties = parameters.unpack()
        check(uri == self.uri, f"the program is called {uri[:80]}")
        variants = parameters.get_child_value(1)
        types = {key: variants.lookup_value(key, None).get_type_string() for key in properties}
        check(types == {"progress": "d", "progress-visible": "b", "urgent": "b"}, f"the properties are {types}")
        check(properties["urgent"] is False, "the icon is urgent")
        self.updates.append((properties["progress-visible"], round(properties["progress"], 6)))

    def expect(self, visible, progress, why):
        """Waits until the latest update has these values."""
        deadline = time.monotonic() + MAX_WAIT
        while self.updates[-1:] != [(visible, progress)] and time.monotonic() < deadline:
            GLib.MainContext.default().iteration(False)
            time.sleep(0.002)
        check(self.updates[-1:] == [(visible, progress)], f"{why}: {self.updates[-5:]}")


def check_signals(program, bus):
    dock = Dock(bus)
    steps = Steps(program)
    steps.do("new 1")
    dock.expect(False, 0, "construction shows no progress")
    steps.do("progress 1 0.5")
    dock.expect(True, 0.5, "half")
    steps.do("progress 1 0.0019")
    dock.expect(True, 0.001, "whole thousandths")
    steps.do("progress 1 1.5")
    dock.expect(True, 1, "more than everything is everything")
    steps.do("progress 1 -0.5")
    dock.expect(True, 0, "less than nothing is nothing")
    steps.do("progress 1 0.7", "indeterminate 1")
    dock.expect(True, 0, "an unknown length is an empty bar")
    steps.do("progress 1 0.25")
    dock.expect(True, 0.25, "a quarter")

    before = len(dock.updates)
    for line in ("progress 1 0.25", "progress 1 0.2504", "new-without-window 2", "progress 2 0.9", "new 4", "delete 4"):
        steps.do(line)
        time.sleep(0.03)  # gives the program time to send what it must not send
    steps.do("progress 1 0.3")
    dock.expect(True, 0.3, "no window shows nothing")
    check(len(dock.updates) == before + 1, f"the same value was sent again: {dock.updates[before:]}")

    steps.do("new 3", "progress 3 0.8")
    dock.expect(True, 0.8, "the latest of two operations")
    steps.do("progress 1 0.375")
    dock.expect(True, 0.375, "the latest change of two operations")
    steps.do("delete 1")
    dock.expect(True, 0.8, "the operation that goes on")
    steps.do("idle 3")
    dock.expect(False, 0, "the end of the last operation")
    steps.do("threads 3", "progress 3 0.625")
    dock.expect(True, 0.625, "the last word after eight threads")
    steps.do("delete 3", "delete 2")
    dock.expect(False, 0, "the destructor removes the progress")
    steps.do("new 1", "progress 1 0.75")
    dock.expect(True, 0.75, "the entry can be used again")
    check(steps.longest < MAX_CALL, f"a call took {steps.longest:.2f} s")
    steps.end()


def check_without_answer(program, why, **environment):
    """The program must work, and wait for nothing."""
    steps = Steps(program, **environment)
    steps.do("new 1", "progress 1 0.5", "indeterminate 1", "threads 1", "new 2", "idle 2", "delete 1", "delete 2", "new 3")
    steps.end()
    check(steps.longest < MAX_CALL, f"{why}: a call took {steps.longest:.2f} s")


def check_missing_bus(program, folder):
    """Programs that start a bus find it by its name."""
    marker = os.path.join(folder, "started")
    for name in ("dbus-launch", "dbus-daemon"):
        trap = os.path.join(folder, name)
        with open(trap, "w", encoding="ascii") as script:
            script.write(f"#!/bin/sh\ntouch '{marker}'\n")
        os.chmod(trap, 0o755)
    path = folder + ":" + os.environ["PATH"]
    for address in (None, "", "autolaunch:"):
        check_without_answer(program, f"the address {address!r}", DBUS_SESSION_BUS_ADDRESS=address, PATH=path,
                             XDG_RUNTIME_DIR=folder)
        check(not os.path.exists(marker), f"a bus was started for the address {address!r}")


def check_user_bus(program, bus_address, folder):
    """The bus of a systemd session lies in a well-known place."""
    os.symlink(bus_address.split("path=")[1].split(",")[0], os.path.join(folder, "bus"))
    dock = Dock(Gio.bus_get_sync(Gio.BusType.SESSION, None))
    steps = Steps(program, DBUS_SESSION_BUS_ADDRESS=None, XDG_RUNTIME_DIR=folder)
    steps.do("new 1", "progress 1 0.125")
    dock.expect(True, 0.125, "the bus in the user's folder")
    steps.end()


def check_hanging_bus(program, folder):
    path = os.path.join(folder, "hanging")
    with socket.socket(socket.AF_UNIX) as listener:
        listener.bind(path)
        listener.listen()
        check_without_answer(program, "a bus that never answers", DBUS_SESSION_BUS_ADDRESS="unix:path=" + path)


@contextlib.contextmanager
def separate_bus():
    """Yields a bus, its address, and a connection to it."""
    daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
                              text=True)
    try:
        address = daemon.stdout.readline().strip()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        yield daemon, address, Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
    finally:
        daemon.kill()
        daemon.wait()
        daemon.stdout.close()


def check_broken_bus(program, how, daemon, address, bus):
    dock = Dock(bus)
    steps = Steps(program, DBUS_SESSION_BUS_ADDRESS=address)
    steps.do("new 1", "progress 1 0.5")
    dock.expect(True, 0.5, "before the bus breaks")
    daemon.send_signal(how)
    steps.do("progress 1 0.6", "threads 1", "new 2", "progress 2 0.3", "delete 1", "delete 2", "new 3", "progress 3 0.9")
    time.sleep(0.1)
    steps.do("progress 3 1", "delete 3")
    steps.end()
    check(steps.longest < MAX_CALL, f"{how.name}: a call took {steps.longest:.2f} s")


def check_full_socket(program, daemon, address, bus):
    """A stopped bus reads nothing, and the socket has no room for the rest of the update."""
    # Each update contains the name, in which the program replaces a byte that is not UTF-8 by three bytes.
    length = 120000
    check(3 * length > bus.get_stream().get_socket().get_option(socket.SOL_SOCKET, socket.SO_SNDBUF).value,
          "the socket has room for an update")
    dock = Dock(bus, "\N{REPLACEMENT CHARACTER}" * length)
    steps = Steps(program, b"\xff" * length, DBUS_SESSION_BUS_ADDRESS=address)
    steps.do("new 1", "progress 1 0.5")
    dock.expect(True, 0.5, "before the bus stops")
    daemon.send_signal(signal.SIGSTOP)
    for percent in range(100):
        steps.do(f"progress 1 {percent / 100}")
    time.sleep(0.1)
    steps.do("delete 1", "new 1", "progress 1 0.25", "new 2", "delete 1")
    daemon.send_signal(signal.SIGCONT)
    steps.do("progress 2 0.75")
    dock.expect(True, 0.75, "the bus has read an update in the end")
    steps.end()
    check(steps.longest < MAX_CALL, f"a full socket: a call took {steps.longest:.2f} s")


def main():
    program = sys.argv[1]
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    check_signals(program, bus)
    check_without_answer(program, "a dead address", DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent/bus")
    check_without_answer(program, "a wrong address", DBUS_SESSION_BUS_ADDRESS="no address at all")
    with tempfile.TemporaryDirectory() as folder:
        check_hanging_bus(program, folder)
        for how in (signal.SIGKILL, signal.SIGSTOP):
            with separate_bus() as broken:
                check_broken_bus(program, how, *broken)
        with separate_bus() as stopped:
            check_full_socket(program, *stopped)
        check_missing_bus(program, folder)
        check_user_bus(program, os.environ["DBUS_SESSION_BUS_ADDRESS"], folder)
    sys.exit(1 if failures else 0)


main()
