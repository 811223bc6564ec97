"""The Chooser with the number keys: a whole pass, a restart, another pass; and the refusal of a
stack that has too few cards."""

from tests.support.journey import expect, expect_equal, run, session, settings_of, stack_of
from tests.support.sound import Listener, write_noise
from tests.support.study import ScoreBoard

# The sound tells which card came, whatever order the cards come in.
ANSWERS = {"one.wav": "uno", "two.wav": "dos", "three.wav": "tres", "four.wav": "cuatro",
           "five.wav": "cinco"}
CARDS = [((sound.removesuffix(".wav"), sound, ""), answer) for sound, answer in ANSWERS.items()]
TITLE = "Chooser - numbers (General)"


class Chooser:
    def __init__(self, journey, listener):
        self.journey, self.listener = journey, listener
        self.desktop = journey.desktop
        self.window = journey.study("c", TITLE)
        self.score = ScoreBoard(self.desktop, self.window)
        # The side options come first.
        self.options = self.window.all("radio button")[2:]
        expect_equal(len(self.options), 4, "the number of answers")
        expect(not any(option.enabled for option in self.options), "answers without a question")

    def ask(self):
        """Presses Next; returns the right answer, once the question's sound has ended."""
        self.listener.forget()
        self.desktop.key("space")
        sound = self.desktop.wait_until(self.listener.under_way, "a sound")
        self.desktop.wait_until(lambda: self.listener.is_heard_out(sound), "the end of the sound")
        self.desktop.wait_until(lambda: all(option.enabled for option in self.options),
                                "four answers")
        return ANSWERS[sound]

    def choose(self, answer, right):
        """Presses the number of the answer, or that of another one."""
        # A side without media keeps the two blanks that its line ends in.
        names = [option.name.rstrip(" ") for option in self.options]
        expect(answer in names, f"the right answer {answer} is not among {names}")
        place = next(i for i, name in enumerate(names) if (name == answer) == right)
        self.desktop.key(str(place + 1))
        self.desktop.wait_until(self.score.marks, "a mark")
        expect_equal([option.enabled for option in self.options],
                     [name == answer for name in names], "the answers left to see")

    def run_pass(self, prefix):
        answers = []
        for number, right in enumerate((True, False, True, True, False), 1):
            before = self.score.counts()
            answers.append(self.ask())
            self.choose(answers[-1], right)
            expect_equal(self.score.marks(), ["Right"] if right else ["Wrong"], "the marks")
            counted = [before[0] + right, before[1] + (not right)]
            self.score.wait_for_counts(*counted)
            self.desktop.key("1", "2", "3", "4")  # only the first choice counts
            self.desktop.wait_until(lambda: self.window.one("push button", "Next").focused,
                                    "Next to be ready")
            self.desktop.settled_look_at(self.desktop.active_window())
            expect_equal(self.score.counts(), counted, "the counters after a second choice")
            self.desktop.picture(f"{prefix}-{number}")
        expect_equal(sorted(answers), sorted(ANSWERS.values()), "the cards of one pass")


def whole_passes(program, pictures):
    with session(program, pictures) as journey:
        for seed, name in enumerate(ANSWERS):
            write_noise(journey.cards / name, seconds=0.2, seed=seed)
        listener = Listener(journey.desktop.home, journey.cards.glob("*.wav"))
        journey.desktop.environment.update(listener.environment)
        journey.write_settings(settings_of("General"))
        path = journey.cards / "numbers.QBC"
        path.write_bytes(stack_of("General", "Five numbers", CARDS))
        journey.start(path)

        mode = Chooser(journey, listener)
        mode.run_pass("first")
        journey.desktop.key("space")
        journey.answer_box("No more cards - Restart?", "alt+y", picture="no-more-cards")
        mode.score.wait_for_counts(0, 0)
        mode.run_pass("second")
        journey.desktop.key("space")
        journey.answer_box("No more cards - Restart?", "Escape")
        journey.desktop.wait_until_gone(TITLE)
        journey.quit()
        journey.expect_file(path, stack_of("General", "Five numbers", CARDS))


def too_few_cards(program, pictures):
    with session(program, pictures) as journey:
        journey.write_settings(settings_of("General"))
        path = journey.cards / "three.QBC"
        path.write_bytes(stack_of("General", "Three numbers", CARDS[:3]))
        journey.start(path)
        journey.menu("alt+s", "c")
        journey.answer_box("Not enough cards to run Chooser", "Return", picture="refusal")
        expect_equal([window.name for window in journey.reader.windows()
                      if window.name.startswith(("Chooser", "Set Timer"))], [], "open windows")
        journey.quit()


if __name__ == "__main__":
    run(whole_passes, too_few_cards)
