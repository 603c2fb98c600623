# SPDX-License-Identifier: MIT
"""The Wayland desktop that tools/testing/wayland-desktop.sh has started, its mouse and its keyboard, and the programs on
it, which are read through the bus of assistive technology."""

import contextlib
import dataclasses
import json
import os
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

MAX_WAIT = 10  # seconds
REPORTS = ["object:state-changed", "object:children-changed", "object:property-change", "window"]


@dataclasses.dataclass(frozen=True)
class Rect:
    x: int
    y: int
    width: int
    height: int

    @property
    def place(self):
        return self.x, self.y

    @property
    def right(self):
        return self.x + self.width

    @property
    def bottom(self):
        return self.y + self.height

    @property
    def middle(self):
        return self.x + self.width // 2, self.y + self.height // 2

    def contains(self, other):
        return self.x <= other.x and self.y <= other.y and other.right <= self.right and other.bottom <= self.bottom

    def moved(self, x, y):
        return Rect(self.x + x, self.y + y, self.width, self.height)

    def grown(self, x, y):
        return Rect(self.x - x, self.y - y, self.width + 2 * x, self.height + 2 * y)

    def clipped(self, other):
        x, y = max(self.x, other.x), max(self.y, other.y)
        return Rect(x, y, max(min(self.right, other.right) - x, 0), max(min(self.bottom, other.bottom) - y, 0))


def until(condition, wait=MAX_WAIT):
    """Waits until the condition holds, and returns what the condition returned last."""
    end = time.monotonic() + wait
    while True:
        # The accessible tree changes by reports, which come in here.
        while GLib.MainContext.default().iteration(False):
            pass
        result = None
        with contextlib.suppress(GLib.Error):  # what was asked about went away
            result = condition()
        if result or time.monotonic() > end:
            return result
        time.sleep(0.02)


class Picture:
    """The pixels of all outputs."""

    def __init__(self):
        raw = subprocess.run(["grim", "-t", "ppm", "-"], capture_output=True, check=True).stdout
        magic, width, height, _most, self.pixels = raw.split(maxsplit=4)
        # The first bytes of the pixels may be those of white space.
        self.width, self.height = int(width), int(height)
        self.pixels = raw[-3 * self.width * self.height:]
        assert magic == b"P6"

    @staticmethod
    def save(name):
        subprocess.run(["grim", name], check=True)

    def row(self, y, x=0, right=None):
        start = 3 * self.width * y
        return self.pixels[start + 3 * x:start + 3 * (self.width if right is None else right)]

    def colour(self, x, y):
        return tuple(self.row(y, x, x + 1))

    def part(self, rect):
        return [self.row(y, rect.x, rect.right) for y in range(rect.y, rect.bottom)]

    def changed_from(self, other, within=None):
        """Returns the rectangle around all pixels that differ, or None."""
        if self.pixels == other.pixels:
            return None
        whole = Rect(0, 0, self.width, self.height)
        area = (within or whole).clipped(whole)
        pairs = list(zip(self.part(area), other.part(area)))
        rows = [y for y, (ours, theirs) in enumerate(pairs) if ours != theirs]
        if not rows:
            return None
        left, right = area.width, 0
        for y in rows:
            ours, theirs = pairs[y]
            differing = [x for x in range(area.width) if ours[3 * x:3 * x + 3] != theirs[3 * x:3 * x + 3]]
            left, right = min(left, differing[0]), max(right, differing[-1] + 1)
        return Rect(area.x + left, area.y + rows[0], right - left, rows[-1] + 1 - rows[0])


def message(*words):
    answer = subprocess.run(["swaymsg", "-r", *words], capture_output=True, text=True, check=True).stdout
    return json.loads(answer)


@dataclasses.dataclass(frozen=True)
class Window:
    number: int
    process: int
    shell: str
    title: str
    focused: bool
    content: Rect

    def command(self, words):
        message(f"[con_id={self.number}] {words}")


def windows_in(node):
    if node.get("pid"):
        rect, inside = node["rect"], node["window_rect"]
        content = Rect(rect["x"] + inside["x"], rect["y"] + inside["y"], inside["width"], inside["height"])
        yield Window(node["id"], node["pid"], node.get("shell", ""), node.get("name") or "", node["focused"], content)
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        yield from windows_in(child)


def outputs():
    """Returns the outputs from left to right."""
    found = []
    for text in os.environ["NOLVEX_OUTPUTS"].split():
        size, x, y = text.split("+")
        width, height = size.split("x")
        found.append(Rect(int(x), int(y), int(width), int(height)))
    return found


class Desktop:
    """Only one object of this class may exist."""

    def __init__(self):
        size = str(max(output.right for output in outputs())), str(max(output.bottom for output in outputs()))
        self.input = subprocess.Popen(["bin/NolvexDesktopInput", *size], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                      text=True)
        self.pressed = set()
        # The tree of assistive technology is kept up to date by what the programs report.
        self.listener = Atspi.EventListener.new(lambda event: None)
        for report in REPORTS:
            self.listener.register(report)

    def close(self):
        self.input.stdin.close()
        self.input.wait()
        self.input.stdout.close()

    def do(self, *lines):
        for line in lines:
            self.input.stdin.write(line + "\n")
            self.input.stdin.flush()
            answer = self.input.stdout.readline()
            if answer != "done\n":
                raise RuntimeError(f"{line!r} was answered by {answer!r}")
            command, _, button = line.partition(" ")
            if command == "press":
                self.pressed.add(button)
            elif command == "release":
                self.pressed.discard(button)

    def release_all(self):
        """Releases the buttons that a test left pressed."""
        self.do(*[f"release {button}" for button in self.pressed])

    def move(self, point):
        """Moves the mouse there in two steps, since some programs take the first motion for an arrival only."""
        x, y = point
        self.do(f"move {x - 1} {y}", f"move {x} {y}")

    def glide(self, start, end):
        """Moves the mouse from one point to another at the speed of a hand."""
        steps = max(abs(end[0] - start[0]), abs(end[1] - start[1]), 1)
        for step in range(1, steps + 1):
            x, y = (ours + (theirs - ours) * step // steps for ours, theirs in zip(start, end))
            self.do(f"move {x} {y}")
            time.sleep(0.008)

    def drag(self, start, end):
        """Presses the left button at a point and moves the mouse to another."""
        self.move(start)
        self.do("press left")
        time.sleep(0.05)
        self.glide(start, end)

    def click(self, point, button="left"):
        self.move(point)
        self.do(f"press {button}", f"release {button}")

    @staticmethod
    def windows():
        return list(windows_in(message("-t", "get_tree")))

    @staticmethod
    def settled(within=None, quiet=0.15):
        """Returns a picture after which the desktop has not changed for `quiet` seconds."""
        previous = Picture()
        end = time.monotonic() + MAX_WAIT
        while time.monotonic() < end:
            time.sleep(quiet)
            picture = Picture()
            if picture.changed_from(previous, within) is None:
                return picture
            previous = picture
        raise RuntimeError("the desktop does not come to rest")


class Program:
    """A program that runs on the desktop. `backend` is x11 or wayland."""

    def __init__(self, desktop, backend, name, *arguments):
        self.desktop = desktop
        self.name = name
        self.shell = {"x11": "xwayland", "wayland": "xdg_shell"}[backend]
        self.log = open(f"{name}-{backend}.log", "w+b")
        # A program that remembers its window would open it where the program before left it.
        self.settings = tempfile.mkdtemp(dir=os.getcwd())
        self.process = subprocess.Popen([f"bin/{name}", *arguments], stdout=self.log, stderr=subprocess.STDOUT,
                                        env={**os.environ, "GDK_BACKEND": backend,
                                             "XDG_CONFIG_HOME": self.settings})

    def windows(self):
        return [window for window in self.desktop.windows() if window.process == self.process.pid]

    def window(self, title):
        """Waits for the window whose title contains the text."""
        found = until(lambda: [window for window in self.windows() if title in window.title])
        if not found:
            raise RuntimeError(f"{self.name} has no window {title!r}, but {self.windows()}; {self.output()}")
        if found[0].shell != self.shell:
            raise RuntimeError(f"the window is one of {found[0].shell}")
        return found[0]

    def tree(self):
        """Returns the window of the program that has the focus, or else the first, for assistive technology."""
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(index)
            if program is not None and program.get_process_id() == self.process.pid:
                return program
        return None

    def controls(self):
        """Yields every control of the program that is shown."""
        open_nodes = [self.tree()]
        while open_nodes:
            node = open_nodes.pop()
            if node is None:
                continue
            if node.get_state_set().contains(Atspi.StateType.SHOWING):
                yield node
            # Long lists have a child for each item.
            children = [node.get_child_at_index(index) for index in range(min(node.get_child_count(), 100))]
            open_nodes.extend(reversed(children))

    def find(self, role, name):
        """Returns the first control of that role and name that is shown, or None."""
        found = (control for control in self.controls() if control.get_role_name() == role and control.get_name() == name)
        return next(found, None)

    def control(self, role, name):
        """Waits for the control."""
        found = until(lambda: self.find(role, name))
        if found is None:
            shown = "; ".join(f"{each.get_role_name()} {each.get_name()!r}" for each in self.controls())
            raise RuntimeError(f"{self.name} shows no {role} {name!r}, but {shown}; {self.output()}")
        return found

    def rect(self, title, role, name):
        """Returns where the control is on the desktop. `title` is that of the window."""
        content = self.window(title).content
        extents = self.control(role, name).get_extents(Atspi.CoordType.WINDOW)
        return Rect(extents.x, extents.y, extents.width, extents.height).moved(content.x, content.y)

    def text_of(self, role, name):
        control = self.control(role, name)
        return Atspi.Text.get_text(control, 0, Atspi.Text.get_character_count(control))

    def has_state(self, role, name, state):
        return self.control(role, name).get_state_set().contains(state)

    def output(self):
        self.log.flush()
        self.log.seek(0)
        return self.log.read().decode(errors="replace")

    def has_ended(self):
        return self.process.poll() is not None

    def end(self):
        """Waits for the end of the program and returns its status, which is None for a program that did not end."""
        until(self.has_ended)
        status = self.process.poll()
        if status is None:
            self.process.kill()
            self.process.wait()
        return status
