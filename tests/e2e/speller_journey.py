"""The Speller by keyboard alone: spell cards that sound, rightly and wrongly, with a character that
the keyboard lacks; restart; go on to the end. What is heard is what the sound files hold."""

import pathlib
import shutil
import subprocess

from tests.support.desktop import Picture
from tests.support.journey import expect, expect_equal, run, session, settings_of, stack_of
from tests.support.sound import Listener, write_noise
from tests.support.study import ScoreBoard

SAMPLES = pathlib.Path(__file__).parents[2] / "samples"
LONG = "long.wav"
# All answers are the same, whichever card comes; the sound tells which one came.
CARDS = [(("coffee house", "france.wav", "france.bmp"), "café"),
         (("coffee shop", "germany.wav", "germany.gif"), "café"),
         (("black coffee", LONG, "ireland.jpg"), "café")]
PICTURES = {front[1]: front[2] for front, _ in CARDS}
TITLE = "Speller - coffee (Spanish)"


def corner_colour(path):
    """The colour at the lower left of a flag, of which a good part of it is."""
    ppm = subprocess.run(["convert", str(path), "-depth", "8", "ppm:-"], check=True,
                         capture_output=True).stdout
    flag = Picture(ppm)
    return flag.crop(2, flag.height - 3, 1, 1)


class Speller:
    def __init__(self, journey, listener):
        self.journey, self.listener = journey, listener
        self.desktop = journey.desktop
        self.window = journey.study("p", TITLE)
        self.field = self.window.one("text", "Your answer:")
        self.score = ScoreBoard(self.desktop, self.window)

    def ask(self):
        """Presses Next for a question and lets its sound end; returns the sound's name."""
        self.listener.forget()
        self.desktop.key("space")
        name = self.desktop.wait_until(self.listener.under_way, "a sound")
        if name == LONG:
            self.type_during(name)
        self.desktop.wait_until(lambda: self.field.focused, "the answer field")
        expect(self.listener.is_heard_out(name), f"the field took over before the end of {name}")
        return name

    def type_during(self, name):
        """What is typed during a sound arrives after it."""
        self.desktop.key("x", "y")
        text = self.field.text
        expect(not self.listener.is_heard_out(name), "the sound was over too soon to tell")
        expect_equal(text, "", "the field while the sound plays")
        self.journey.wait_for_text(self.field, "xy")
        expect(self.listener.is_heard_out(name), f"keys acted before the end of {name}")
        self.desktop.key("BackSpace", "BackSpace")
        self.journey.wait_for_text(self.field, "")

    def shows(self, picture):
        pixels = self.desktop.look_at(self.desktop.active_window())
        colour = corner_colour(self.journey.cards / picture)
        return sum(pixels[i : i + 3] == colour for i in range(0, len(pixels), 3)) > 1000

    def answer(self, keys, text):
        self.desktop.key(*keys)
        self.journey.wait_for_text(self.field, text)
        self.desktop.key("Return")  # from the field: carries out Next, types nothing
        self.desktop.wait_until(self.score.marks, "a mark")

    def run_pass(self, prefix):
        """All three cards, the second one misspelled; marks and counters tell."""
        sounds = []
        for number, right in enumerate((True, False, True), 1):
            before = self.score.counts()
            sounds.append(self.ask())
            expect_equal([picture for picture in PICTURES.values() if self.shows(picture)],
                         [PICTURES[sounds[-1]]], "the flags shown")
            expect_equal(self.score.marks(), [], "the marks at a question")
            if right:
                self.answer(["c", "a", "f", "ctrl+e"], "café")
            else:
                self.answer(["c", "a", "f", "e"], "cafe")
            expect_equal(self.score.marks(), ["Right"] if right else ["Wrong"], "the marks")
            self.score.wait_for_counts(before[0] + right, before[1] + (not right))
            self.desktop.picture(f"{prefix}-{number}")
        expect_equal(sorted(sounds), sorted(self.listener.sounds), "the sounds of one pass")


def speller(program, pictures):
    with session(program, pictures) as journey:
        desktop = journey.desktop
        for name in ("france.wav", "france.bmp", "germany.wav", "germany.gif", "ireland.jpg"):
            shutil.copy(SAMPLES / name, journey.cards)
        write_noise(journey.cards / LONG, seconds=3, seed=550)
        listener = Listener(desktop.home, journey.cards.glob("*.wav"))
        desktop.environment.update(listener.environment)
        journey.write_settings(settings_of("General", ("Spanish", "32Eé")))
        path = journey.cards / "coffee.QBC"
        path.write_bytes(stack_of("Spanish", "One answer", CARDS))
        journey.start(path)

        mode = Speller(journey, listener)
        mode.run_pass("first")
        desktop.key("space")
        journey.answer_box("No more cards - Restart?", "alt+y", picture="no-more-cards")
        mode.score.wait_for_counts(0, 0)
        expect_equal(mode.score.marks(), [], "the marks after the restart")
        mode.run_pass("second")
        desktop.key("space")
        journey.answer_box("No more cards - Restart?", "alt+n")
        desktop.wait_until_gone(TITLE)
        journey.quit()
        journey.expect_file(path, stack_of("Spanish", "One answer", CARDS))


if __name__ == "__main__":
    run(speller)
