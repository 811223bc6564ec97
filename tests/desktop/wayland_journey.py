"""A session on Wayland: windows open, take keys and close; the program has nothing to complain of,
its dialogs belong to their windows, and all of them to its menu entry. The first argument is the
build folder."""

import itertools
import pathlib
import re

from tests.support.journey import (TITLE, Journey, expect, expect_equal, run, settings_of,
                                   stack_of)
from tests.support.screenreader import BusError
from tests.support.wayland import WaylandDesktop

STATE_ACTIVE = 1 << 1
LOOKS_PER_KEY = 20
STUDY = "Stepper - words (General)"
DIALOGS = (  # what opens each from the main window, and its title
    (("ctrl+o",), "Load Stack of Cards"),
    (("alt+f", "p"), f"{TITLE} - words"),
    (("alt+t", "a"), "Add Topic"),
    (("alt+t", "f"), f"{TITLE} (General)"),
    (("alt+h", "a"), "About Quib!Cards"),
)


class WaylandJourney(Journey):
    """The compositor says which window has the keyboard, and the program knows it."""

    def wait_until(self, condition, what):
        def met():
            try:
                return condition()
            except BusError:
                return None  # what it asked about has just gone
        return self.desktop.wait_until(met, what)

    def active(self, title, role=None):
        """@param role  of something that there must be in the window"""
        return next((window for window in self.reader.windows()
                     if window.name.rstrip() == title and window.states & STATE_ACTIVE
                     and (role is None or window.all(role))), None)

    def wait_until_active(self, title, role=None):
        return self.wait_until(lambda: self.active(title, role), f"'{title}' to have the keyboard")

    def wait_for_main(self):
        """The splash has the same title, but no list."""
        self.wait_until_active(TITLE, "combo box")

    def open(self, keys, title):
        """The last of the keys is the command, one before it opens its menu. A busy compositor takes
        a menu away again; as anybody would, this asks once more for what does not come."""
        looks = itertools.count()

        def opened():
            window = self.active(title)
            if window is None and next(looks) % LOOKS_PER_KEY == 0 and self.active(TITLE):
                in_menu = len(keys) == 1 or self.active(TITLE, "popup menu")
                self.desktop.key(keys[-1] if in_menu else keys[0])
            return window

        self.wait_for_main()
        return self.wait_until(opened, f"'{title}'")

    def wait_until_closed(self, title):
        self.wait_until(
            lambda: title not in [window.name.rstrip() for window in self.reader.windows()],
            f"the end of '{title}'")


def study(journey):
    journey.open(("alt+s", "s"), "Set Timer")
    journey.desktop.key("Return")
    window = journey.wait_until_active(STUDY)
    for side in ("coffee", "café"):
        journey.desktop.key("space")
        journey.wait_until(
            lambda: side in [label.name.rstrip() for label in window.all("label")], f"'{side}'")
    journey.desktop.key("space")
    journey.wait_until_active(TITLE, "alert message")
    expect_equal(journey.message(), "No more cards - Restart?", "the question at the end")
    journey.desktop.picture("study")
    journey.desktop.key("Escape")
    journey.wait_until_closed(STUDY)


def expect_good_guest(desktop):
    expect_equal(desktop.complaints(), [], "what the program complains of")
    asked = "\n".join(desktop.requests())
    names = set(re.findall(r"set_app_id\(\"(.*)\"\)", asked))
    expect_equal(names, {"quibcards"}, "the menu entries of the windows")
    owned = set(re.findall(r"(xdg_toplevel@\d+)\.set_parent\(xdg_toplevel", asked))
    titled = re.findall(r"(xdg_toplevel@\d+)\.set_title\(\"(.*)\"\)", asked)
    for _, title in (*DIALOGS, ((), "Set Timer")):
        windows = {window for window, its_title in titled if its_title.rstrip() == title}
        expect(windows and windows <= owned, f"'{title}' belongs to another window")


def session(build, pictures):
    program = pathlib.Path(build) / "bin" / "quibcards"
    with WaylandDesktop(program, pictures, reader=True) as desktop:
        journey = WaylandJourney(desktop)
        journey.write_settings(settings_of("General"))
        stack = journey.cards / "words.QBC"
        stack.write_bytes(stack_of("General", "A word", [("coffee", "café")]))
        desktop.start(stack)
        for keys, title in DIALOGS:
            journey.open(keys, title)
            desktop.picture(keys[-1])
            desktop.key("Escape")
            journey.wait_until_closed(title)
        study(journey)
        journey.open(("F1",), "Quib!Cards Help")
        desktop.key("Escape")
        journey.wait_until_closed("Quib!Cards Help")
        journey.wait_for_main()
        desktop.key("ctrl+q")
        desktop.wait_for_end()
        expect_good_guest(desktop)


if __name__ == "__main__":
    run(session)
