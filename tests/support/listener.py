"""A screen reader in small: it reads the program's windows, acts on them, and remembers what it was
told of its own accord, all through the desktop's own accessibility library."""

import os

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

from tests.support.desktop import DesktopError
from tests.support.journey import expect, expect_equal


class Listener:
    """Uses the message bus of a desktop's `reader`. There is one in a process."""

    def __init__(self, desktop):
        self.desktop = desktop
        os.environ.update(desktop.reader.environment, DISPLAY=desktop.environment["DISPLAY"])
        Atspi.init()
        Atspi.set_timeout(1500, 0)  # milliseconds
        self.announcements = []
        self._showing = Atspi.EventListener.new(self._appeared)
        self._showing.register("object:state-changed:showing")
        # Newer toolkits have an event of its own for it.
        self._announced = Atspi.EventListener.new(self._told)
        self._announced.register("object:announcement")

        # Without it the library would go on giving names that have changed.
        self._renamed = Atspi.EventListener.new(lambda event: None)
        self._renamed.register("object:property-change:accessible-name")

    def _appeared(self, event):
        if event.detail1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
            self.announcements.append(event.source.get_name())

    def _told(self, event):
        self.announcements.append(event.any_data)

    @staticmethod
    def hear():
        """Takes in what has arrived."""
        while GLib.MainContext.default().iteration(False):
            pass

    def next_words(self):
        """Waits for what is said next, and returns it."""
        def arrived():
            self.hear()
            return self.announcements
        self.desktop.wait_until(arrived, "something to be said")
        return self.announcements.pop(0)

    def hears(self, words):
        """Waits for what is said next, which has to be this."""
        expect_equal(self.next_words(), words, "what is said")

    def programs(self):
        root = Atspi.get_desktop(0)
        return [root.get_child_at_index(i) for i in range(root.get_child_count())]

    def windows(self):
        """All windows that are open, the newest first."""
        self.hear()
        return [window for program in self.programs() for window in reversed(children(program))
                if is_showing(window)]

    def window(self, title, part=None):
        """The newest window with this title, once it is there and has this part, a role and a
        name."""
        def find():
            return next((window for window in self.windows() if window.get_name() == title and
                         (part is None or all_of(window, *part))), None)
        return self.desktop.wait_until(find, f"'{title}' to be read")

    def wait_until_gone(self, title):
        self.desktop.wait_until(
            lambda: title not in [window.get_name() for window in self.windows()],
            f"the end of '{title}'")


def children(thing):
    found = (thing.get_child_at_index(i) for i in range(thing.get_child_count()))
    return [child for child in found if child is not None]


def is_showing(thing):
    return thing.get_state_set().contains(Atspi.StateType.SHOWING)


def everything(thing):
    yield thing
    for child in children(thing):
        yield from everything(child)


def all_of(window, role, name=None, hidden=False):
    """A card's text may end in blanks, which nobody hears."""
    return [thing for thing in everything(window) if thing.get_role_name() == role and
            (name is None or thing.get_name().rstrip() == name) and
            (hidden or is_showing(thing))]


def one(window, role, name, hidden=False):
    """The only thing in the window of this role and name; the entries of closed menus are
    hidden."""
    found = all_of(window, role, name, hidden)
    expect(len(found) == 1, f"{len(found)} things are a {role} '{name}'")
    return found[0]


def press(thing, action="Press"):
    """Does what the thing offers under this name."""
    for i in range(thing.get_n_actions()):
        if thing.get_action_name(i) == action:
            try:
                thing.do_action(i)
            except GLib.GError:
                pass  # a modal window has opened; the answer comes when it closes
            return
    raise DesktopError(f"{thing.get_name()} offers no {action}")


def type_into(field, text):
    """Puts a text into a field in place of what is there."""
    expect(field.set_text_contents(text), f"{field.get_name()} takes no text")


def unnamed(window):
    """What can have the focus in a window but has no name."""
    def can_have_focus(thing):
        states = thing.get_state_set()
        return states.contains(Atspi.StateType.FOCUSABLE) and is_showing(thing)
    return [f"{thing.get_role_name()} at {i}" for i, thing in enumerate(everything(window))
            if can_have_focus(thing) and not thing.get_name().strip()]
