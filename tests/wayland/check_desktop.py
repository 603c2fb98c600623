# SPDX-License-Identifier: MIT
"""check_desktop.py [TEST...]: uses the viewer and the gallery as a user does, on Wayland and through XWayland. Runs on
the desktop of tools/testing/wayland-desktop.sh. What a user sees is compared as pictures, and what a control holds is
asked of assistive technology."""

import struct
import subprocess
import time
import unittest

from desktop import Atspi, Desktop, Picture, Rect, until
from popup_steps import ComboBoxSteps, DropdownButtonSteps, TooltipSteps
from program_test import FAR_AWAY, GalleryTest, ProgramTest

PICTURE = "gradient.bmp"
PICTURE_SIZE = (1600, 1200)


def write_picture():
    """Writes a picture of 24 bits, in which no two pixels of a column are equal."""
    width, height = PICTURE_SIZE
    rows = b"".join(bytes(channel for x in range(width) for channel in (x % 256, y % 256, (x // 256 * 16 + y // 256) % 256))
                    for y in range(height))
    with open(PICTURE, "wb") as file:
        file.write(b"BM" + struct.pack("<IIIIiiHHIIiiII", 54 + len(rows), 0, 54, 40, width, height, 1, 24, 0, len(rows),
                                       0, 0, 0, 0))
        file.write(rows)


class ViewerTest(ProgramTest):
    name = "nolvex-viewer"
    title = PICTURE
    arguments = (PICTURE,)

    def test_1_wheel_scrolls(self):
        view = self.rect("image", PICTURE)
        self.desktop.move(view.middle)
        before = self.desktop.settled(view)
        self.desktop.do("wheel 3")
        self.assertTrue(until(lambda: Picture().changed_from(before, view)))

    def test_2_copied_picture_is_on_the_clipboard(self):
        self.desktop.do("key ctrl+c")
        self.assertTrue(until(lambda: self.clipboard_size() == PICTURE_SIZE))

    @staticmethod
    def clipboard_size():
        png = subprocess.run(["timeout", "5", "wl-paste", "-t", "image/png"], capture_output=True, check=False).stdout
        return struct.unpack(">II", png[16:24]) if png.startswith(b"\x89PNG") else None

    def test_3_escape_closes_an_open_menu_only(self):
        menu = self.rect("menu", "Picture")
        # Where the menu opens. Elsewhere, scroll bars appear and fade.
        place = Rect(menu.x, menu.bottom + 4, 100, 60)
        before = self.desktop.settled()
        self.desktop.click(menu.middle)
        self.assertTrue(until(lambda: Picture().changed_from(before, place)), "no menu opens")
        self.desktop.do("key Escape")
        self.assertTrue(until(lambda: Picture().changed_from(before, place) is None), "the menu stays")
        self.assertFalse(self.program.has_ended())

    def test_9_escape_ends_the_program(self):
        self.desktop.do("key Escape")
        self.assertEqual(self.program.end(), 0)
        self.assertEqual(self.program.output(), "")


class ViewerOnWaylandTest(ViewerTest, unittest.TestCase):
    backend = "wayland"


class ViewerOnXWaylandTest(ViewerTest, unittest.TestCase):
    backend = "x11"


class OtherSteps(GalleryTest):
    def test_button_that_is_clicked_and_left_at_once_is_not_lit(self):
        self.open_page("Buttons")
        button = self.rect("toggle button", "Spinners")
        before = Picture()
        self.desktop.move(button.middle)
        self.assertTrue(until(lambda: Picture().changed_from(before, button)), "the button is never lit")
        self.desktop.do("press left", "release left", "move %d %d" % FAR_AWAY)
        self.assertTrue(until(lambda: self.program.has_state("toggle button", "Spinners", Atspi.StateType.CHECKED)))
        self.open_page("Buttons")
        self.assertIsNone(Picture().changed_from(before, button))

    def test_probe_follows_the_mouse(self):
        self.open_page("Pixel probe")
        picture = self.rect("image", "Gradient with special values")
        # Where the top left corner of the probe may be, without the border of the picture, which changes under the mouse.
        near = picture.grown(-4, -4)
        before = self.desktop.settled(near)

        def probe_place():
            return Picture().changed_from(before, near)

        points = [(picture.x + 20 + 30 * step, picture.y + 20 + 20 * step) for step in range(4)]
        self.desktop.move(points[0])
        for start, end in zip(points[:1] + points, points):
            self.desktop.glide(start, end)
            corner = end[0] + 20, end[1] + 20
            self.assertTrue(until(lambda: self.is_corner(probe_place(), corner)), f"{probe_place()} instead of {corner}")
        self.assertTrue(self.program.window(self.title).focused)
        # XWayland takes the probe for the window under the mouse until the mouse is moved once more.
        self.desktop.move(points[-1])
        self.desktop.settled(near)
        self.desktop.move(FAR_AWAY)
        self.assertTrue(until(lambda: Picture().changed_from(before, near) is None), "the probe stays")

    def test_spinner_is_dragged(self):
        self.open_page("Spinners")
        name = "Whole numbers, 0 to 100"
        spinner = self.rect("spin button", name)
        # The second drag ends above the window.
        for distance in (20, -60):
            # Two presses within a shorter time are a double click.
            time.sleep(0.5)
            log = self.program.text_of("text", "Log")
            value = self.program.control("spin button", name).get_current_value()
            start = spinner.right - 5, spinner.bottom - 5
            self.desktop.drag(start, (start[0], start[1] + distance))
            self.desktop.do("release left")
            self.assertTrue(until(lambda: "ends." in self.program.text_of("text", "Log")[len(log):]))
            # The mouse has places between two pixels on Wayland, and XWayland rounds them.
            moved = value - self.program.control("spin button", name).get_current_value()
            self.assert_between(distance - 4, moved, distance + 4)

    def test_colour_is_dragged_to_another_button(self):
        self.open_page("Colour picker buttons")
        orange, teal = self.rect("push button", "Orange"), self.rect("push button", "Teal")
        self.desktop.move(FAR_AWAY)
        colour = self.desktop.settled().colour(*orange.middle)
        self.desktop.drag(orange.middle, teal.middle)
        self.desktop.settled()
        self.desktop.do("release left")
        self.desktop.move(FAR_AWAY)
        self.assertTrue(until(lambda: Picture().colour(*teal.middle) == colour))

    def test_dialog_belongs_to_the_window(self):
        self.open_page("Message dialogs")
        self.desktop.click(self.rect("push button", "Plain").middle)
        self.assertTrue(until(lambda: len(self.program.windows()) == 2), self.program.windows())
        dialog = next(window for window in self.program.windows() if self.title not in window.title)
        self.assertTrue(until(lambda: any(window.focused for window in self.program.windows() if window.number == dialog.number)))
        self.desktop.do("key Escape")
        self.assertTrue(until(lambda: len(self.program.windows()) == 1))


class GalleryEnd(GalleryTest):
    def test_z_gtk_complains_of_nothing(self):
        self.program.window(self.title).command("kill")
        self.assertEqual(self.program.end(), 0)
        self.assertEqual(self.program.output(), "")


class GallerySteps(DropdownButtonSteps, ComboBoxSteps, TooltipSteps, OtherSteps, GalleryEnd):
    pass


class GalleryOnWaylandTest(GallerySteps, unittest.TestCase):
    backend = "wayland"


class GalleryOnXWaylandTest(GallerySteps, unittest.TestCase):
    backend = "x11"


def main():
    write_picture()
    ProgramTest.desktop = Desktop()
    try:
        unittest.main()
    finally:
        ProgramTest.desktop.close()


main()
