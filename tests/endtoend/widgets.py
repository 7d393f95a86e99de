#!/usr/bin/python3
"""Tells what a program's windows show, as a screen reader is told.

Reads a command a line and answers each with a line "= ...". WINDOW and NAME are regular
expressions for a window's title and a widget's accessible name; only what is in sight counts.

    active WINDOW         "yes" while the keyboard is that window's, else "no"
    place WINDOW|NAME     "x y width height" on the screen; "none" without such a widget. A box goes
                          before the label of its name
    text WINDOW|NAME      what stands in a box
    checked WINDOW|NAME   "yes" or "no"
    names WINDOW          all the names, with "; " between
"""

import re
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

ACCESSIBLE = "org.a11y.atspi.Accessible"
# Of the states' numbers.
ACTIVE, CHECKED, SHOWING = 1, 4, 25
TIMEOUT_MS = 20000
ROOT = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")


def accessibility_bus():
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    answer = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None,
                               None, 0, TIMEOUT_MS)
    flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
             | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    return Gio.DBusConnection.new_for_address_sync(answer.unpack()[0], flags)


class Tree:
    """What of it has gone meanwhile counts as never there."""

    def __init__(self):
        self.bus = accessibility_bus()

    def call(self, node, interface, method, arguments=None):
        answer = self.bus.call_sync(*node, interface, method, arguments, None, 0, TIMEOUT_MS)
        return answer.unpack()[0]

    def children(self, node):
        return self.call(node, ACCESSIBLE, "GetChildren")

    def name(self, node):
        return self.call(node, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (ACCESSIBLE, "Name")))

    def has(self, node, state):
        return bool(self.call(node, ACCESSIBLE, "GetState")[state // 32] >> state % 32 & 1)

    def extents(self, node):
        return self.call(node, "org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))

    def holds_text(self, node):
        """A box does; the label of the same name beside it does not."""
        return "org.a11y.atspi.EditableText" in self.call(node, ACCESSIBLE, "GetInterfaces")

    def text(self, node):
        return self.call(node, "org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))

    def windows(self, title):
        for program in self.children(ROOT):
            for window in self.children(program):
                if re.search(title, self.name(window)) and self.has(window, SHOWING):
                    yield window

    def widgets(self, title, name=".+"):
        waiting = [child for window in self.windows(title) for child in self.children(window)]
        while waiting:
            node = waiting.pop(0)
            if not self.has(node, SHOWING):
                continue
            if re.fullmatch(name, self.name(node)):
                yield node
            waiting.extend(self.children(node))


def yes(condition):
    return "yes" if condition else "no"


def answer(tree, command, what):
    title, _, name = what.partition("|")
    if command == "active":
        return yes(any(tree.has(window, ACTIVE) for window in tree.windows(title)))
    if command == "names":
        return "; ".join(tree.name(widget) for widget in tree.widgets(title))
    if command == "text":
        return next((tree.text(box) for box in tree.widgets(title, name) if tree.holds_text(box)),
                    "none")
    widget = min(tree.widgets(title, name), key=lambda one: not tree.holds_text(one), default=None)
    if widget is None:
        return "none"
    if command == "checked":
        return yes(tree.has(widget, CHECKED))
    return " ".join(str(number) for number in tree.extents(widget))


def main():
    tree = Tree()
    print("ready", flush=True)
    for line in sys.stdin:
        try:
            told = answer(tree, *line.rstrip("\n").split(" ", 1))
        except GLib.Error as error:
            told = "none"
            print(error, file=sys.stderr)
        print("=", told.replace("\n", " "), flush=True)


if __name__ == "__main__":
    main()
