# SPDX-License-Identifier: MIT
"""check_capture.py [TEST...]: captures the screen from the viewer, on Wayland and through XWayland, where only the portal
of the desktop can take the picture. Runs on the desktop of tools/testing/wayland-desktop.sh."""

import os
import select
import subprocess
import unittest

from desktop import MAX_WAIT, Desktop, Picture, Program, Rect, message, outputs, until

SAMPLE = "sample.pfm"
# A point at which no window is.
FAR_AWAY = 1000, 700

CAPTURED = "Unsaved picture of the screen"

desktop = None


class Portal:
    def __init__(self):
        self.process = subprocess.Popen(["/usr/bin/python3", "-B", "tests/wayland/portal.py"], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)

    def behave(self, manner):
        self.process.stdin.write(manner + "\n")
        self.process.stdin.flush()
        self.expect(manner)

    def expect(self, line):
        ready, _, _ = select.select([self.process.stdout], [], [], MAX_WAIT)
        said = self.process.stdout.readline().strip() if ready else "nothing"
        assert said == line, f"the portal says {said!r} instead of {line!r}"

    def close(self):
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()


class SavedPicture(Picture):
    """A picture that the portal has taken."""

    def __init__(self):
        with open("shot.ppm", "rb") as file:
            raw = file.read()
        _magic, width, height, _rest = raw.split(maxsplit=3)
        self.width, self.height = int(width), int(height)
        self.pixels = raw[-3 * self.width * self.height:]


def node_of(process):
    """Returns what sway knows about the window of the process."""
    open_nodes = [message("-t", "get_tree")]
    while open_nodes:
        node = open_nodes.pop()
        if node.get("pid") == process:
            return node
        open_nodes.extend(node.get("nodes", []) + node.get("floating_nodes", []))
    return None


class CaptureSteps:
    backend = None

    def setUp(self):
        self.portal = None
        self.programs = []

    def tearDown(self):
        result = self._outcome.result
        if any(test is self for test, _ in result.failures + result.errors):
            Picture.save(f"{self.id().rpartition('.')[2]}-{self.backend}.png")
        for program in self.programs:
            program.process.kill()
            program.process.wait()
            program.log.close()
        if self.portal is not None:
            self.portal.close()

    def start(self, *arguments):
        self.programs.append(Program(desktop, self.backend, "nolvex-viewer", *arguments))
        return self.programs[-1]

    def start_portal(self, manner):
        self.portal = Portal()
        self.portal.behave(manner)

    def start_viewer(self):
        viewer = self.start(SAMPLE)
        window = viewer.window(SAMPLE)
        window.command("move absolute position 0 0, focus")
        self.assertTrue(until(lambda: viewer.window(SAMPLE).focused))
        desktop.move(FAR_AWAY)
        desktop.settled()
        return viewer

    @staticmethod
    def capture(viewer, scale=1):
        """`scale` is that of the outputs, whose pixels the mouse counts."""
        x, y = viewer.rect(SAMPLE, "push button", "Capture").middle
        desktop.click((x * scale, y * scale))

    def assert_told(self, viewer, text):
        self.assertTrue(until(lambda: text in viewer.text_of("text", "Log")), viewer.output())
        self.assertIn(SAMPLE, viewer.window("").title)

    def title_of_capture(self):
        width = max(output.right for output in outputs())
        height = max(output.bottom for output in outputs())
        return f"{CAPTURED} ({width} \u00d7 {height})"

    def test_without_a_portal_the_screen_cannot_be_read(self):
        viewer = self.start_viewer()
        self.capture(viewer)
        self.assert_told(viewer, "The screen cannot be read.")

    def test_refusal_is_told(self):
        self.start_portal("refuse")
        viewer = self.start_viewer()
        self.capture(viewer)
        self.portal.expect("asked")
        self.assert_told(viewer, "The picture of the screen was not allowed.")

    def test_picture_of_the_desktop_is_shown(self):
        self.start_portal("picture")
        viewer = self.start_viewer()
        self.capture(viewer)
        self.portal.expect("asked")
        desktop.move(FAR_AWAY)
        viewer.window(self.title_of_capture())
        # The upper left corner of the picture, pixel by pixel.
        desktop.do("key ctrl+1", "key Home")
        view = viewer.rect(CAPTURED, "image", CAPTURED)
        shown, taken = desktop.settled(view), SavedPicture()
        part = Rect(0, 0, view.width - 30, view.height - 30)
        self.assertGreater(len({bytes(row) for row in taken.part(part)}), 20, "the window is not in the picture")
        # The lists are too long for unittest to describe how they differ.
        self.assertTrue(shown.part(Rect(view.x, view.y, part.width, part.height)) == taken.part(part),
                        "the view shows something else")
        self.assertFalse(os.path.exists("shot.png"), "the file of the portal is left")

    def test_program_can_begin_with_a_picture(self):
        self.start_portal("picture")
        viewer = self.start("--capture")
        self.portal.expect("asked")
        viewer.window(self.title_of_capture())

    def test_closed_window_closes_the_question(self):
        self.start_portal("wait")
        viewer = self.start_viewer()
        self.capture(viewer)
        self.portal.expect("asked")
        viewer.window(SAMPLE).command("kill")
        self.portal.expect("closed")
        self.assertEqual(viewer.end(), 0)
        self.assertEqual(viewer.output(), "")

    def test_window_is_that_of_the_desktop_file(self):
        viewer = self.start_viewer()
        node = node_of(viewer.process.pid)
        names = [node["app_id"]] if self.backend == "wayland" else [node["window_properties"][part] for part in ("class", "instance")]
        self.assertEqual(set(names), {"nolvex-viewer"})


class CaptureOnWaylandTest(CaptureSteps, unittest.TestCase):
    backend = "wayland"

    def test_scaled_desktop_gives_its_own_pixels(self):
        self.start_portal("picture")
        for number, output in enumerate(outputs(), 1):
            message(f"output HEADLESS-{number} scale 2 position {output.x // 2} {output.y // 2}")
        try:
            viewer = self.start_viewer()
            self.capture(viewer, 2)
            self.portal.expect("asked")
            viewer.window(self.title_of_capture())
        finally:
            for number, output in enumerate(outputs(), 1):
                message(f"output HEADLESS-{number} scale 1 position {output.x} {output.y}")


class CaptureOnXWaylandTest(CaptureSteps, unittest.TestCase):
    backend = "x11"


def write_sample():
    with open(SAMPLE, "wb") as file:
        file.write(b"PF\n8 8\n-1\n" + bytes(8 * 8 * 12))


def main():
    global desktop
    write_sample()
    desktop = Desktop()
    try:
        unittest.main()
    finally:
        desktop.close()


main()
