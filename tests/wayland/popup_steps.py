# SPDX-License-Identifier: MIT
"""The steps with the popups of the gallery: drop-down frames, lists and tooltips."""

import time

from desktop import Picture, Rect, outputs, until
from program_test import FAR_AWAY, GalleryTest


class DropdownButtonSteps(GalleryTest):
    # Two choices of 73 by 24.
    SIZE = 73, 48

    def open_dropdown(self):
        """Holds the first button down, and returns where the button and the frame are."""
        button = self.rect("push button", "Render")
        # Where the frame may be.
        near = button.grown(40, 60)
        self.desktop.move(button.middle)
        self.before = self.desktop.settled(near)
        self.desktop.do("press left")
        self.assertTrue(until(lambda: (Picture().changed_from(self.before, near) or button).height > button.height),
                        "no frame opens")
        return button, self.desktop.settled(near).changed_from(self.before, near)

    def release(self, point=FAR_AWAY):
        self.desktop.move(point)
        self.desktop.do("release left")
        self.desktop.move(FAR_AWAY)

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
        self.desktop.move(box.middle)
        # Where the list may be.
        near = box.grown(40, self.list_height() + 20)
        self.before = self.desktop.settled(near)
        self.desktop.click(box.middle)
        self.assertTrue(until(lambda: (Picture().changed_from(self.before, near) or box).height > 2 * box.height),
                        "no list opens")
        return box, self.desktop.settled(near).changed_from(self.before, near)

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
        self.desktop.click((box.x + 30, box.bottom + 3 + 3 * 18 + 9))
        self.assert_logged("Six items: the item with the id 4 was selected.")
        self.desktop.move(FAR_AWAY)
        self.assertTrue(until(lambda: self.is_list_gone(box)))

    def test_combo_box_obeys_keys_while_open(self):
        self.open_page("Combo boxes")
        self.open_list()
        self.desktop.do("key Home", "key Down", "key Down")
        self.assert_logged("Six items: the item with the id 3 was selected.")
        self.desktop.do("text l")
        self.assert_logged("Six items: the item with the id 6 was selected.")
        self.desktop.do("key Escape")
        box = self.rect("combo box", "Six items")
        self.assertTrue(until(lambda: self.is_list_gone(box)))

    def test_combo_box_closes_on_a_click_elsewhere(self):
        self.open_page("Combo boxes")
        box, _changed = self.open_list()
        self.desktop.click(self.rect("label", "100,000 items").moved(200, 0).middle)
        self.assertTrue(until(lambda: self.is_list_gone(box)))

    def test_combo_box_keeps_its_open_list_below_itself(self):
        self.open_page("Combo boxes")
        box = self.rect("combo box", "Skin")
        self.desktop.click(box.middle)
        self.desktop.settled(quiet=0.4)
        try:
            self.program.window(self.title).command("resize set 1060 620")
            self.assertTrue(until(lambda: self.rect("combo box", "Skin").x != box.x), "the box does not move")
            moved = self.rect("combo box", "Skin")
            near = moved.grown(40, 60)
            opened = self.desktop.settled(near, 0.4)
            self.desktop.do("key Escape")
            self.assertTrue(until(lambda: Picture().changed_from(opened, near)), "the list is not open")
            # Two rows of 18 pixels, two pixels above them, and a border.
            list_place = Rect(moved.x, moved.bottom, moved.width, 2 * 18 + 4)
            self.assert_place(self.desktop.settled(near).changed_from(opened, near), list_place)
        finally:
            self.program.window(self.title).command("resize set 960 620")

    def test_combo_box_at_the_bottom_opens_above(self):
        self.open_page_at_the_bottom("Combo boxes", "combo box", "Six items")
        box, changed = self.open_list()
        self.assert_place(changed, self.list_below(box).moved(0, -box.height - self.list_height()))
        self.desktop.click((box.x + 30, box.y - self.list_height() + 3 + 9))
        self.assert_logged("Six items: the item with the id 1 was selected.")

    def test_combo_box_on_the_second_output(self):
        self.open_page("Combo boxes", outputs()[1], 20, 40)
        box, changed = self.open_list()
        self.assert_place(changed, self.list_below(box))
        self.desktop.click((box.x + 30, box.bottom + 3 + 4 * 18 + 9))
        self.assert_logged("Six items: the item with the id 5 was selected.")


class TooltipSteps(GalleryTest):
    LONG = "A long text is wrapped"

    def show_tooltip(self, label):
        """Rests the mouse on the label and returns where the tooltip is, which hides when a key is pressed."""
        point = self.rect("label", label).middle
        near = Rect(*point, 0, 0).grown(500, 150)
        for _attempt in range(5):
            self.desktop.move(point)
            time.sleep(0.8)
            shown = self.desktop.settled(near)
            self.desktop.do("key F12")
            if until(lambda: Picture().changed_from(shown, near), 1):
                return self.desktop.settled(near).changed_from(shown, near)
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
