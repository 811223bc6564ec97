#!/usr/bin/env python3
"""A guided tour of the main job on a virtual display: load a stack and study it. Leaves pictures.

guided-tour.py PROGRAM STACK [FOLDER FOR THE PICTURES]
"""

import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT))
sys.dont_write_bytecode = True
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")  # a virtual desktop has no sound device

from tests.support.desktop import Desktop, DesktopError  # noqa: E402

TITLE = "Quib!Cards 5.50"


def has_colours(pixels):
    return len({pixels[i : i + 3] for i in range(0, len(pixels), 3)}) > 16


class Tour:
    def __init__(self, desktop):
        self.desktop = desktop
        self.stops = 0

    def look(self, what):
        self.stops += 1
        path = self.desktop.picture(f"{self.stops:02}-{what.lower().replace(' ', '-')}")
        print(f"  {path.name:34} {what}")

    def keep(self, shot, what):
        """Keeps a look that was taken before, for what does not stay long."""
        self.stops += 1
        path = self.desktop.pictures / f"{self.stops:02}-{what.lower().replace(' ', '-')}.png"
        header = f"P6 {shot.width} {shot.height} 255\n".encode()
        subprocess.run(["convert", "ppm:-", str(path)], input=header + shot.pixels, check=True)
        print(f"  {path.name:34} {what}")

    def first_look(self):
        """The screen once something is painted in its middle, where the splash comes up."""
        shot = self.desktop.look()
        middle = shot.crop(shot.width // 2 - 100, shot.height // 2 - 100, 200, 200)
        return shot if has_colours(middle) else None

    def rest(self):
        """Waits until the active window is painted and stays as it is."""
        window = self.desktop.active_window()
        self.desktop.wait_until(lambda: self.is_painted(window), "the window's content")
        self.desktop.settled_look_at(window)

    def is_painted(self, window):
        """A window that has just come up is of one colour, or black."""
        return has_colours(self.desktop.look_at(window))

    def card(self):
        """The pixels of the card: of the active window, what is between its controls."""
        x, y, width, height = self.desktop.geometry(self.desktop.active_window())
        return self.desktop.look().crop(x + width // 10, y + height // 4, width * 4 // 5,
                                        height // 2)

    def turn(self, key, what):
        """Presses a key that changes the card. A sound holds keys back, so this can take a while."""
        before = self.card()
        self.desktop.key(key)
        self.desktop.wait_until(lambda: self.card() != before, what)
        self.rest()
        self.look(what)

    def covers(self, window, other):
        left, top, right, bottom = self.desktop.frame(window)
        inner_left, inner_top, inner_right, inner_bottom = self.desktop.frame(other)
        return (left <= inner_left and top <= inner_top
                and right >= inner_right and bottom >= inner_bottom)

    def take(self, stack):
        desktop = self.desktop
        desktop.start(stack)
        shot = desktop.wait_until(self.first_look, "the splash")
        self.keep(shot, "Splash")
        splash = min(desktop.windows(TITLE), key=lambda window: desktop.geometry(window)[2])
        desktop.wait_until(lambda: len(desktop.windows(TITLE)) > 1
                           or desktop.active_title().endswith(" Error"), "the main window")
        desktop.activate(TITLE)
        self.rest()
        if not self.covers(desktop.active_window(), splash):
            raise DesktopError("the splash looks out behind the main window")
        self.look("Main window with the stack loaded")
        desktop.key("alt+s")
        self.rest()
        self.look("Study menu")
        desktop.key("s")
        desktop.wait_for("Set Timer")
        self.rest()
        self.look("Study settings")
        desktop.key("Return")
        desktop.wait_until(lambda: desktop.active_title().startswith("Stepper - "),
                           "the study window")
        self.rest()
        self.turn("space", "First question")
        self.turn("space", "Its answer")
        self.turn("alt+b", "The card turned over")
        desktop.key("alt+q")
        desktop.activate(TITLE)
        desktop.key("ctrl+o")
        desktop.wait_for("Load Stack of Cards")
        self.rest()
        self.look("Loading another stack")
        desktop.key("Escape")
        desktop.wait_for(TITLE)
        desktop.key("ctrl+q")
        desktop.wait_for_end()


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    stack = pathlib.Path(sys.argv[2]).resolve()
    pictures = pathlib.Path(sys.argv[3]) if len(sys.argv) > 3 else ROOT / "guided-tour"
    shutil.rmtree(pictures, ignore_errors=True)
    print("There is no display, so here is a guided tour on a virtual one:")
    try:
        with Desktop(program, pictures) as desktop:
            Tour(desktop).take(stack)
    except DesktopError as error:
        sys.exit(f"guided-tour: {error}")
    print(f"The pictures are in {pictures}")


if __name__ == "__main__":
    main()
