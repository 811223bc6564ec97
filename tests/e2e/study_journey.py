"""A newcomer's first session: start on a stack, step through all of it, turn it over, redo a card,
restart; study it timed; load it through the dialog; and leave everything on disk as it was."""

import hashlib
import pathlib
import sys
import time

from tests.support.desktop import Desktop, DesktopError

TITLE = "Quib!Cards 5.50"
SETTINGS = (
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n"
    "[General]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
    "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
    "[Spanish]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
    "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
)
CARDS = [("dog", "perro"), ("cat", "gato"), ("house", "casa")]


def expect(condition, what):
    if not condition:
        raise DesktopError(what)


def digest(folder):
    return {path.name: hashlib.sha256(path.read_bytes()).hexdigest()
            for path in sorted(folder.iterdir())}


def write_stack(path):
    lines = ["Spanish", "Three words".ljust(64)]
    for front, back in CARDS:
        lines += [front + "  ", back + "  "]
    path.write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))


class Journey:
    def __init__(self, desktop):
        self.desktop = desktop
        self.cards = desktop.home / "cards"
        self.cards.mkdir()
        write_stack(self.cards / "first words.QBC")
        self.settings = desktop.home / "config" / "quibcards" / "QUIBCRDS.INI"
        self.settings.parent.mkdir(parents=True)
        self.settings.write_bytes(SETTINGS.encode("cp1252"))
        self.before = digest(self.cards)

    def start(self, *arguments):
        self.desktop.start(*arguments)
        self.main = self.desktop.wait_until(self.main_window, "the main window")
        self.desktop.activate(TITLE)

    def main_window(self):
        """The main window, once the splash (which has the same title) is no longer alone."""
        windows = self.desktop.windows(TITLE)
        return next((w for w in windows if self.desktop.geometry(w)[2] > 400), None)

    def wait_for_box(self):
        """Waits for a message box: an active window with the program's title that is not the main
        one."""
        def active_box():
            active = self.desktop._run_quietly("xdotool", "getactivewindow").strip()
            return active if active in self.desktop.windows(TITLE) and active != self.main else None
        return self.desktop.wait_until(active_box, "a message box")

    def study(self, key, title):
        self.desktop.activate(TITLE)
        self.desktop.key("alt+s", key)
        self.desktop.wait_for("Set Timer")
        return title

    def step_through(self, title):
        window = self.desktop.wait_for(title)
        for number, _ in enumerate(CARDS, 1):
            question = self.turn(window)
            self.desktop.picture(f"question-{number}")
            answer = self.turn(window)
            expect(question != answer, "the answer did not appear")
        return window

    def turn(self, window):
        """Presses Next and waits until the window shows something else."""
        before = self.desktop.look_at(window)
        self.desktop.key("space")
        self.desktop.wait_until(lambda: self.desktop.look_at(window) != before, "the next step")
        return self.desktop.settled_look_at(window)

    def expect_files_untouched(self):
        expect(digest(self.cards) == self.before, "a stack file changed")
        expect(self.settings.read_bytes() == SETTINGS.encode("cp1252"), "the settings changed")


def whole_pass(journey):
    desktop = journey.desktop
    desktop.picture("main")
    title = journey.study("s", "Stepper - first words (Spanish)")
    desktop.picture("timer")
    desktop.key("Return")
    window = journey.step_through(title)

    # Turned over with Back, the card looks different; turned back, the same again.
    shown = desktop.settled_look_at(window)
    desktop.key("alt+b")
    desktop.wait_until(lambda: desktop.look_at(window) != shown, "the turned card")
    desktop.picture("turned-over")
    desktop.key("alt+f")
    desktop.settled_look_at(window)

    # A redone last card comes once more, so the pass ends one card later.
    desktop.key("alt+r")
    journey.turn(window)
    journey.turn(window)
    desktop.key("space")
    journey.wait_for_box()
    desktop.picture("no-more-cards")
    desktop.key("alt+y")
    desktop.wait_for(title)
    desktop.settled_look_at(window)
    desktop.picture("restarted")
    journey.step_through(title)
    desktop.key("space")
    journey.wait_for_box()
    desktop.key("Escape")
    desktop.wait_until_gone(title)


def timed(journey):
    desktop = journey.desktop
    title = journey.study("q", "Quibber - first words (Spanish)")
    desktop.key("alt+2", "Return")
    window = desktop.wait_for(title)
    empty = desktop.settled_look_at(window)
    started = time.monotonic()
    desktop.key("space")
    desktop.wait_until(lambda: desktop.look_at(window) != empty, "the question")
    desktop.picture("timed-question")
    x, y, width, height = desktop.geometry(window)

    def card():
        # Without the frame and the counter: the middle of the upper half.
        return desktop.look().crop(x + width // 4, y + height // 4, width // 2, height // 5)

    def blank(pixels):
        return len({pixels[i : i + 3] for i in range(0, len(pixels), 3)}) == 1

    desktop.wait_until(lambda: blank(card()), "the question to vanish")
    vanished = time.monotonic() - started
    expect(vanished >= 0.25, f"the question vanished after {vanished:.3f} s")
    desktop.picture("timed-blank")
    desktop.key("space")
    desktop.wait_until(lambda: not blank(card()), "the question to return with the answer")
    desktop.picture("timed-answer")
    desktop.key("alt+q")
    desktop.wait_until_gone(title)


def load_through_the_dialog(journey):
    desktop = journey.desktop
    desktop.activate(TITLE)
    desktop.key("ctrl+o")
    desktop.wait_for("Load Stack of Cards")
    desktop.picture("load")
    desktop.type("absent.QBC")
    desktop.key("Return")
    desktop.wait_for("Quib!Cards 5.50 Error")
    desktop.picture("not-found")
    desktop.key("Return")
    desktop.wait_for("Load Stack of Cards")
    desktop.key("ctrl+a")
    desktop.type("first words.QBC")
    desktop.key("Return")
    desktop.wait_until_gone("Load Stack of Cards")
    whole_pass(journey)


def main():
    program, pictures = sys.argv[1:3]
    with Desktop(program, pictures) as desktop:
        journey = Journey(desktop)
        journey.start(journey.cards / "first words.QBC")
        whole_pass(journey)
        timed(journey)
        desktop.activate(TITLE)
        desktop.key("ctrl+q")
        desktop.wait_for_end()
        journey.expect_files_untouched()
    with Desktop(program, pathlib.Path(pictures) / "dialog") as desktop:
        journey = Journey(desktop)
        # A shell user's bare name: the current folder has it, so it becomes the default folder.
        desktop.start("first words", folder=journey.cards)
        journey.main = desktop.wait_until(journey.main_window, "the main window")
        desktop.activate(TITLE)
        load_through_the_dialog(journey)
        desktop.activate(TITLE)
        desktop.key("ctrl+q")
        desktop.wait_for_end()
        journey.expect_files_untouched()
    print("1 passed, 0 failed")


if __name__ == "__main__":
    main()
