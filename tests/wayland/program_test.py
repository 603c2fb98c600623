# SPDX-License-Identifier: MIT
"""What the checks of the viewer and of the gallery have in common."""

from desktop import Atspi, Picture, Program, outputs, until

# A point at which no window is.
FAR_AWAY = 5, 5


class ProgramTest:
    """The steps with one program, which runs for all tests of the class."""

    desktop = None  # is set before the first test
    name = backend = title = None
    arguments = ()

    @classmethod
    def setUpClass(cls):
        cls.program = Program(cls.desktop, cls.backend, cls.name, *cls.arguments)
        cls.place(outputs()[0], 100, 100)

    @classmethod
    def place(cls, output, x, y):
        """Moves the window to a point of the output, and the mouse out of its way."""
        x, y = output.x + x, output.y + y
        cls.program.window(cls.title).command(f"move absolute position {x} {y}, focus")
        placed = until(lambda: cls.program.window(cls.title).content.place == (x, y))
        assert placed, cls.program.window(cls.title)
        cls.desktop.move(FAR_AWAY)
        cls.desktop.settled()

    @classmethod
    def tearDownClass(cls):
        cls.program.end()
        cls.program.log.close()

    def tearDown(self):
        # A test that failed leaves a picture.
        result = self._outcome.result
        if any(test is self for test, _ in result.failures + result.errors):
            Picture.save(f"{self.id().rpartition('.')[2]}-{self.backend}.png")
        self.desktop.release_all()

    def content(self):
        return self.program.window(self.title).content

    def rect(self, role, name):
        return self.program.rect(self.title, role, name)

    def assert_between(self, low, value, high):
        self.assertLessEqual(low, value)
        self.assertLessEqual(value, high)


class GalleryTest(ProgramTest):
    name = "nolvex-gallery"
    title = "Gallery"

    def open_page(self, name, output=None, x=100, y=100):
        """Shows the page, with the window at a point of the output, the first unless named."""
        self.place(output or outputs()[0], x, y)
        self.desktop.click(self.rect("toggle button", name).middle)
        self.assertTrue(until(lambda: self.program.has_state("toggle button", name, Atspi.StateType.CHECKED)))
        self.desktop.move(FAR_AWAY)
        # A machine under load may take a while to show the page.
        self.desktop.settled(quiet=0.4)

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

    @staticmethod
    def is_corner(rect, corner):
        """The mouse has places between two pixels on Wayland, and XWayland rounds them. The outermost pixels of a popup may
        have the colour of what they cover."""
        return rect is not None and all(abs(ours - theirs) <= 2 for ours, theirs in zip(rect.place, corner))

    def assert_corner(self, rect, corner):
        self.assertTrue(self.is_corner(rect, corner), f"{rect} instead of {corner}")

    def assert_logged(self, text):
        self.assertTrue(until(lambda: text in self.program.text_of("text", "Log")), self.program.text_of("text", "Log"))
