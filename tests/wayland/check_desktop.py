# SPDX-License-Identifier: MIT
"""check_desktop.py [TEST...]: uses the viewer and the gallery as a user does, on Wayland and through XWayland. Runs on
the desktop of tools/testing/wayland-desktop.sh. What a user sees is compared as pictures, and what a control holds is
asked of assistive technology."""

import struct
import subprocess
import time
import unittest

from desktop import Atspi, Desktop, Picture, Program, Rect, outputs, until

PICTURE = "gradient.bmp"
PICTURE_SIZE = (1600, 1200)

# A point at which no window is.
FAR_AWAY = 5, 5

desktop = None


def write_picture():
    """Writes a picture of 24 bits, in which no two pixels of a column are equal."""
    width, height = PICTURE_SIZE
    rows = b"".join(bytes(channel for x in range(width) for channel in (x % 256, y % 256, (x // 256 * 16 + y // 256) % 256))
                    for y in range(height))
    with open(PICTURE, "wb") as file:
        file.write(b"BM" + struct.pack("<IIIIiiHHIIiiII", 54 + len(rows), 0, 54, 40, width, height, 1, 24, 0, len(rows),
                                       0, 0, 0, 0))
        file.write(rows)


class ProgramTest:
    """The steps with one program, which runs for all tests of the class."""

    name = backend = title = None
    arguments = ()

    @classmethod
    def setUpClass(cls):
        cls.program = Program(desktop, cls.backend, cls.name, *cls.arguments)
        cls.place(outputs()[0], 100, 100)

    @classmethod
    def place(cls, output, x, y):
        """Moves the window to a point of the output, and the mouse out of its way."""
        x, y = output.x + x, output.y + y
        cls.program.window(cls.title).command(f"move absolute position {x} {y}, focus")
        placed = until(lambda: cls.program.window(cls.title).content.place == (x, y))
        assert placed, cls.program.window(cls.title)
        desktop.move(FAR_AWAY)
        desktop.settled()

    @classmethod
    def tearDownClass(cls):
        cls.program.end()
        cls.program.log.close()

    def tearDown(self):
        # A test that failed leaves a picture.
        result = self._outcome.result
        if any(test is self for test, _ in result.failures + result.errors):
            Picture.save(f"{self.id().rpartition('.')[2]}-{self.backend}.png")
        desktop.release_all()

    def content(self):
        return self.program.window(self.title).content

    def rect(self, role, name):
        return self.program.rect(self.title, role, name)

    def assert_between(self, low, value, high):
        self.assertLessEqual(low, value)
        self.assertLessEqual(value, high)


class ViewerTest(ProgramTest):
    name = "nolvex-viewer"
    title = PICTURE
    arguments = (PICTURE,)

    def test_1_wheel_scrolls(self):
        view = self.rect("panel", PICTURE)
        desktop.move(view.middle)
        before = desktop.settled(view)
        desktop.do("wheel 3")
        self.assertTrue(until(lambda: Picture().changed_from(before, view)))

    def test_2_copied_picture_is_on_the_clipboard(self):
        desktop.do("key ctrl+c")
        self.assertTrue(until(lambda: self.clipboard_size() == PICTURE_SIZE))

    @staticmethod
    def clipboard_size():
        png = subprocess.run(["timeout", "5", "wl-paste", "-t", "image/png"], capture_output=True, check=False).stdout
        return struct.unpack(">II", png[16:24]) if png.startswith(b"\x89PNG") else None

    def test_3_escape_closes_an_open_menu_only(self):
        menu = self.rect("menu", "Picture")
        # Where the menu opens. Elsewhere, scroll bars appear and fade.
        place = Rect(menu.x, menu.bottom + 4, 100, 60)
        before = desktop.settled()
        desktop.click(menu.middle)
        self.assertTrue(until(lambda: Picture().changed_from(before, place)), "no menu opens")
        desktop.do("key Escape")
        self.assertTrue(until(lambda: Picture().changed_from(before, place) is None), "the menu stays")
        self.assertFalse(self.program.has_ended())

    def test_9_escape_ends_the_program(self):
        desktop.do("key Escape")
        self.assertEqual(self.program.end(), 0)
        self.assertEqual(self.program.output(), "")


class ViewerOnWaylandTest(ViewerTest, unittest.TestCase):
    backend = "wayland"


class ViewerOnXWaylandTest(ViewerTest, unittest.TestCase):
    backend = "x11"


class GalleryTest(ProgramTest):
    name = "nolvex-gallery"
    title = "Gallery"

    def open_page(self, name, output=None, x=100, y=100):
        """Shows the page, with the window at a point of the output, the first unless named."""
        self.place(output or outputs()[0], x, y)
        desktop.click(self.rect("toggle button", name).middle)
        self.assertTrue(until(lambda: self.program.has_state("toggle button", name, Atspi.StateType.CHECKED)))
        desktop.move(FAR_AWAY)
        # A machine under load may take a while to show the page.
        desktop.settled(quiet=0.4)

    def open_page_at_the_bottom(self, name, role, control):
        """Shows the page so that the control ends a little above the bottom of the first output."""
        self.open_page(name)
        output = outputs()[0]
        self.place(output, 100, 100 + output.bottom - 30 - self.rect(role, control).bottom)

    def assert_place(self, place, expected, tolerance=2):
        """The outermost pixels of a popup may have the colour of what they cover."""
        self.assertIsNotNone(place)
        for ours, theirs in zip((place.x, place.y, place.right, place.bottom),
                                (expected.x, expected.y, expected.right, expected.bottom)):
            self.assertLessEqual(abs(ours - theirs), tolerance, f"{place} instead of {expected}")

    def assert_corner(self, rect, corner):
        """The mouse has places between two pixels on Wayland, and XWayland rounds them."""
        for ours, theirs in zip(rect.place, corner):
            self.assert_between(theirs - 1, ours, theirs + 1)

    def assert_logged(self, text):
        self.assertTrue(until(lambda: text in self.program.text_of("text", "Log")), self.program.text_of("text", "Log"))


class DropdownButtonSteps(GalleryTest):
    # Two choices of 73 by 24.
    SIZE = 73, 48

    def open_dropdown(self):
        """Holds the first button down, and returns where the button and the frame are."""
        button = self.rect("push button", "Render")
        desktop.move(button.middle)
        self.before = desktop.settled()
        desktop.do("press left")
        # Where the frame may be.
        near = Rect(button.x - 40, button.y - 60, button.width + 80, button.height + 120)
        self.assertTrue(until(lambda: (Picture().changed_from(self.before, near) or button).height > button.height),
                        "no frame opens")
        return button, desktop.settled(near).changed_from(self.before, near)

    def release(self, point=FAR_AWAY):
        desktop.move(point)
        desktop.do("release left")
        desktop.move(FAR_AWAY)

    def test_dropdown_chooses(self):
        self.open_page("Drop-down buttons")
        button, changed = self.open_dropdown()
        self.assert_place(changed, Rect(button.x, button.y, self.SIZE[0], button.height + self.SIZE[1]))
        self.assertTrue(self.program.window(self.title).focused)
        self.assertEqual(len(self.program.windows()), 1)
        self.release((button.x + 20, button.bottom + 36))
        self.assert_logged("Chosen: Region")

    def test_dropdown_released_elsewhere_chooses_nothing(self):
        self.open_page("Drop-down buttons")
        log = self.program.text_of("text", "Log")
        button, _changed = self.open_dropdown()
        self.release()
        frame = Rect(button.x, button.bottom, *self.SIZE)
        self.assertTrue(until(lambda: Picture().changed_from(self.before, frame) is None), "the frame stays")
        self.assertEqual(self.program.text_of("text", "Log"), log)

    def test_dropdown_at_the_bottom_opens_above(self):
        self.open_page_at_the_bottom("Drop-down buttons", "push button", "Render")
        button, changed = self.open_dropdown()
        self.assert_place(changed, Rect(button.x, button.y - self.SIZE[1], self.SIZE[0], button.height + self.SIZE[1]))
        self.release((button.x + 20, button.y - 36))
        self.assert_logged("Chosen: Preview")

    def test_dropdown_on_the_second_output(self):
        self.open_page("Drop-down buttons", outputs()[1], 20, 40)
        button, changed = self.open_dropdown()
        self.assert_place(changed, Rect(button.x, button.y, self.SIZE[0], button.height + self.SIZE[1]))
        self.release((button.x + 20, button.bottom + 12))
        self.assert_logged("Chosen: Preview")


class ComboBoxSteps(GalleryTest):
    ROWS = 6

    def open_list(self):
        box = self.rect("combo box", "Six items")
        desktop.move(box.middle)
        self.before = desktop.settled()
        desktop.click(box.middle)
        self.assertTrue(until(lambda: (Picture().changed_from(self.before) or box).height > 2 * box.height), "no list opens")
        return box, desktop.settled().changed_from(self.before)

    # The rows of 18 pixels have two pixels above them and a border of one pixel around them.
    def list_height(self):
        return self.ROWS * 18 + 4

    def list_below(self, box):
        return Rect(box.x, box.bottom, box.width, self.list_height())

    def is_list_gone(self, box):
        return Picture().changed_from(self.before, self.list_below(box)) is None

    def test_combo_box_chooses_by_the_mouse(self):
        self.open_page("Combo boxes")
        box, changed = self.open_list()
        self.assert_place(changed, self.list_below(box))
        self.assertTrue(self.program.window(self.title).focused)
        self.assertEqual(len(self.program.windows()), 1)
        desktop.click((box.x + 30, box.bottom + 3 + 3 * 18 + 9))
        self.assert_logged("Six items: the item with the id 4 was selected.")
        desktop.move(FAR_AWAY)
        self.assertTrue(until(lambda: self.is_list_gone(box)))

    def test_combo_box_obeys_keys_while_open(self):
        self.open_page("Combo boxes")
        self.open_list()
        desktop.do("key Home", "key Down", "key Down")
        self.assert_logged("Six items: the item with the id 3 was selected.")
        desktop.do("text l")
        self.assert_logged("Six items: the item with the id 6 was selected.")
        desktop.do("key Escape")
        box = self.rect("combo box", "Six items")
        self.assertTrue(until(lambda: self.is_list_gone(box)))

    def test_combo_box_closes_on_a_click_elsewhere(self):
        self.open_page("Combo boxes")
        box, _changed = self.open_list()
        desktop.click(self.rect("label", "100,000 items").moved(200, 0).middle)
        self.assertTrue(until(lambda: self.is_list_gone(box)))

    def test_combo_box_keeps_its_open_list_below_itself(self):
        self.open_page("Combo boxes")
        box = self.rect("combo box", "Skin")
        desktop.click(box.middle)
        desktop.settled(quiet=0.4)
        try:
            self.program.window(self.title).command("resize set 1060 620")
            self.assertTrue(until(lambda: self.rect("combo box", "Skin").x != box.x), "the box does not move")
            moved = self.rect("combo box", "Skin")
            opened = desktop.settled(quiet=0.4)
            desktop.do("key Escape")
            self.assertTrue(until(lambda: Picture().changed_from(opened)), "the list is not open")
            # Two rows of 18 pixels, two pixels above them, and a border.
            list_place = Rect(moved.x, moved.bottom, moved.width, 2 * 18 + 4)
            self.assert_place(desktop.settled().changed_from(opened), list_place)
        finally:
            self.program.window(self.title).command("resize set 960 620")

    def test_combo_box_at_the_bottom_opens_above(self):
        self.open_page_at_the_bottom("Combo boxes", "combo box", "Six items")
        box, changed = self.open_list()
        self.assert_place(changed, self.list_below(box).moved(0, -box.height - self.list_height()))
        desktop.click((box.x + 30, box.y - self.list_height() + 3 + 9))
        self.assert_logged("Six items: the item with the id 1 was selected.")

    def test_combo_box_on_the_second_output(self):
        self.open_page("Combo boxes", outputs()[1], 20, 40)
        box, changed = self.open_list()
        self.assert_place(changed, self.list_below(box))
        desktop.click((box.x + 30, box.bottom + 3 + 4 * 18 + 9))
        self.assert_logged("Six items: the item with the id 5 was selected.")


class TooltipSteps(GalleryTest):
    LONG = "A long text is wrapped"

    def show_tooltip(self, label):
        """Rests the mouse on the label and returns where the tooltip is, which hides when a key is pressed."""
        point = self.rect("label", label).middle
        for _attempt in range(5):
            desktop.move(point)
            time.sleep(0.8)
            shown = desktop.settled()
            desktop.do("key F12")
            if until(lambda: Picture().changed_from(shown), 1):
                return desktop.settled().changed_from(shown)
        self.fail("no tooltip appears")

    def test_tooltip_appears_beside_the_mouse(self):
        self.open_page("Tooltips")
        x, y = self.rect("label", "Rest the mouse here").middle
        changed = self.show_tooltip("Rest the mouse here")
        self.assert_corner(changed, (x + 10, y + 5))

    def test_tooltip_at_the_right_edge(self):
        output = outputs()[0]
        self.open_page("Tooltips")
        free = self.show_tooltip(self.LONG)
        self.place(output, 100 + output.right - 30 - self.rect("label", self.LONG).middle[0], 100)
        x, y = self.rect("label", self.LONG).middle
        self.assert_place(self.show_tooltip(self.LONG),
                          Rect(output.right - free.width, y + 5, free.width, free.height), 0)

    def test_tooltip_at_the_bottom_edge(self):
        output = outputs()[0]
        self.open_page("Tooltips")
        free = self.show_tooltip(self.LONG)
        self.place(output, 100, 100 + output.bottom - 20 - self.rect("label", self.LONG).middle[1])
        x, y = self.rect("label", self.LONG).middle
        self.assert_place(self.show_tooltip(self.LONG),
                          Rect(x + 10, output.bottom - free.height, free.width, free.height), 0)

    def test_tooltip_on_the_second_output(self):
        self.open_page("Tooltips", outputs()[1], 20, 40)
        x, y = self.rect("label", "Rest the mouse here").middle
        changed = self.show_tooltip("Rest the mouse here")
        self.assert_corner(changed, (x + 10, y + 5))


class OtherSteps(GalleryTest):
    def test_button_that_is_clicked_and_left_at_once_is_not_lit(self):
        self.open_page("Buttons")
        button = self.rect("toggle button", "Spinners")
        before = Picture()
        desktop.move(button.middle)
        self.assertTrue(until(lambda: Picture().changed_from(before, button)), "the button is never lit")
        desktop.do("press left", "release left", "move %d %d" % FAR_AWAY)
        self.assertTrue(until(lambda: self.program.has_state("toggle button", "Spinners", Atspi.StateType.CHECKED)))
        self.open_page("Buttons")
        self.assertIsNone(Picture().changed_from(before, button))

    def test_probe_follows_the_mouse(self):
        self.open_page("Pixel probe")
        picture = self.rect("image", "Gradient with special values")
        before = Picture()
        pictures = []
        points = [(picture.x + 20 + 30 * step, picture.y + 20 + 20 * step) for step in range(4)]
        desktop.move(points[0])
        for start, end in zip(points[:1] + points, points):
            desktop.glide(start, end)
            pictures.append(desktop.settled())
        for (x, y), picture, following in zip(points, pictures, pictures[1:]):
            self.assert_corner(following.changed_from(picture), (x + 20, y + 20))
        self.assertTrue(self.program.window(self.title).focused)
        # XWayland takes the probe for the window under the mouse until the mouse is moved once more.
        desktop.move(points[-1])
        desktop.settled()
        desktop.move(FAR_AWAY)
        self.assertTrue(until(lambda: Picture().changed_from(before) is None), "the probe stays")

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
            desktop.drag(start, (start[0], start[1] + distance))
            desktop.do("release left")
            self.assertTrue(until(lambda: "ends." in self.program.text_of("text", "Log")[len(log):]))
            # The mouse has places between two pixels on Wayland, and XWayland rounds them.
            moved = value - self.program.control("spin button", name).get_current_value()
            self.assert_between(distance - 4, moved, distance + 4)

    def test_colour_is_dragged_to_another_button(self):
        self.open_page("Colour picker buttons")
        orange, teal = self.rect("push button", "Orange"), self.rect("push button", "Teal")
        desktop.move(FAR_AWAY)
        colour = desktop.settled().colour(*orange.middle)
        desktop.drag(orange.middle, teal.middle)
        desktop.settled()
        desktop.do("release left")
        desktop.move(FAR_AWAY)
        self.assertTrue(until(lambda: Picture().colour(*teal.middle) == colour))

    def test_dialog_belongs_to_the_window(self):
        self.open_page("Message dialogs")
        desktop.click(self.rect("push button", "Plain").middle)
        self.assertTrue(until(lambda: len(self.program.windows()) == 2), self.program.windows())
        dialog = next(window for window in self.program.windows() if self.title not in window.title)
        self.assertTrue(until(lambda: any(window.focused for window in self.program.windows() if window.number == dialog.number)))
        desktop.do("key Escape")
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
    global desktop
    write_picture()
    desktop = Desktop()
    try:
        unittest.main()
    finally:
        desktop.close()


main()
