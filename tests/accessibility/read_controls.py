# SPDX-License-Identifier: MIT
"""read_controls.py [TITLE] <EXPECTED: reads a window, by default that of AccessibleControls, as a screen reader does, over
the bus for assistive technology, and operates its controls. EXPECTED has a line for each control that must be there, or come to be
there, with role, name, description, states, value and actions. Between these lines there are commands:

    click NAME     does the first action of the control
    set N NAME     changes the value of the control to N
    select N NAME  selects item N of the control
    says REPORT    the program has told of that change
    gone LINE      there is no such control any more
    begins LINE    there is a control whose line begins so
    read TITLE     the following lines are about the window with that title, and the window itself has a line, too
    ended          the program has ended
"""

import contextlib
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

TITLE = "Accessible controls"
STATES = ["selectable", "selected", "checkable", "checked", "indeterminate", "expandable", "expanded", "has-popup", "focusable", "focused"]
KINDS = [
    "object:property-change:accessible-name",
    "object:property-change:accessible-value",
    "object:state-changed:checked",
    "object:state-changed:expanded",
    "object:state-changed:selected",
    "object:selection-changed",
]
LIMIT = 15  # seconds


def children_of(accessible):
    found = (accessible.get_child_at_index(index) for index in range(accessible.get_child_count()))
    return [child for child in found if child is not None]


def all_within(accessible):
    for child in children_of(accessible):
        yield child
        yield from all_within(child)


def states_of(control):
    states = control.get_state_set()
    names = [name for name in STATES if states.contains(getattr(Atspi.StateType, name.replace("-", "_").upper()))]
    if not states.contains(Atspi.StateType.SENSITIVE):
        names.append("disabled")
    return names


def actions_of(control):
    if "Action" not in control.get_interfaces():
        return []
    return [f"[{control.get_action_name(index)}]" for index in range(control.get_n_actions())]


def value_of(control):
    if "Value" not in control.get_interfaces():
        return []
    if control.get_minimum_value() == control.get_maximum_value():
        text = Atspi.Value.get_text(control)
        return [f'value "{text}"'] if text else []
    numbers = control.get_current_value(), control.get_minimum_value(), control.get_maximum_value()
    return ["value %g from %g to %g by %g" % (*numbers, control.get_minimum_increment())]


def description_of(control):
    words = " ".join(control.get_description().split())
    return [f"({words})"] if words else []


def described(control):
    words = [control.get_role_name(), f'"{control.get_name()}"'] + description_of(control)
    return " ".join(words + states_of(control) + value_of(control) + actions_of(control))


class Reader:
    def __init__(self):
        self.title = sys.argv[1] if len(sys.argv) > 1 else TITLE
        self.window = None
        self.reports = []
        self.listener = Atspi.EventListener.new(self.take)
        for kind in KINDS:
            self.listener.register(kind)

    def take(self, event):
        _, major, *minor = [word for word in event.type.split(":") if word]
        value = f" {event.detail1}" if major == "state-changed" else ""
        kind = minor[0] if minor else major
        with contextlib.suppress(GLib.Error):  # the control may have gone away since
            self.reports.append(f'{kind}{value} {event.source.get_role_name()} "{event.source.get_name()}"')

    def find_window(self):
        programs = children_of(Atspi.get_desktop(0))
        windows = [window for program in programs for window in children_of(program) if window.get_name() == self.title]
        self.window = windows[0] if windows else None
        return self.window is not None

    def lines(self):
        return [described(self.window)] + [described(control) for control in all_within(self.window)]

    def operate(self, name, fits, operation):
        """Another control, such as a label, may have the same name."""
        for control in all_within(self.window):
            if control.get_name() == name and fits(control):
                self.reports.clear()
                return operation(control)
        return False

    def holds(self, expectation):
        """Returns whether the expectation holds now."""
        word, _, rest = expectation.partition(" ")
        if word == "click":
            return self.operate(rest, actions_of, lambda control: control.do_action(0))
        if word == "set":
            number, _, name = rest.partition(" ")
            return self.operate(name, value_of, lambda control: control.set_current_value(float(number)))
        if word == "select":
            number, _, name = rest.partition(" ")
            return self.operate(name, children_of, lambda control: control.select_child(int(number)))
        if word == "read":
            self.title = rest
            return self.find_window()
        if word == "says":
            return rest in self.reports
        if word == "ended":
            return not self.find_window()
        if word == "begins":
            return any(line.startswith(rest) for line in self.lines())
        if word == "gone":
            return rest not in self.lines()
        return expectation in self.lines()


def holds_in_time(condition):
    end = time.monotonic() + LIMIT
    while time.monotonic() < end:
        try:
            if condition():
                return True
        except GLib.Error:
            pass  # the control went away while it was being read
        # Reports come in here.
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.02)
    return False


def main():
    expectations = [line.rstrip("\n") for line in sys.stdin if line.strip()]
    reader = Reader()
    if not expectations or not holds_in_time(reader.find_window):
        sys.exit("no expectations, or no window")
    for expectation in expectations:
        if not holds_in_time(lambda: reader.holds(expectation)):
            print(f"never: {expectation}", "reports:", *reader.reports, "controls:", *reader.lines(), sep="\n  ")
            sys.exit(1)


main()
