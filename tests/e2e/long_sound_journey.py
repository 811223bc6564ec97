"""A card with a long sound: what a screen reader presses meanwhile happens when the sound has ended;
Escape ends the sound, and so do Quit and closing the window."""

from tests.support.journey import expect, expect_equal, run, session, settings_of, stack_of
from tests.support.sound import Listener, write_noise

LONG, SHORT = "question.wav", "answer.wav"
TITLE = "Stepper - dog (Spanish)"


class Study:
    def __init__(self, journey, seconds, answer_sound):
        self.journey, self.desktop = journey, journey.desktop
        write_noise(journey.cards / LONG, seconds=seconds, seed=1)
        write_noise(journey.cards / SHORT, seconds=1, seed=2)
        self.listener = Listener(self.desktop.home, journey.cards.glob("*.wav"))
        self.desktop.environment.update(self.listener.environment)
        journey.write_settings(settings_of("General", "Spanish"))
        path = journey.cards / "dog.QBC"
        card = (("dog", LONG, ""), ("perro", answer_sound, ""))
        path.write_bytes(stack_of("Spanish", "One card", [card]))
        journey.start(path)
        self.open()

    def open(self):
        self.window = self.journey.study("s", TITLE)

    def begin_question(self):
        self.listener.forget()
        self.desktop.key("space")
        self.desktop.wait_until(lambda: self.listener.under_way() == LONG, "the question's sound")

    def answers(self):
        return [label for label in self.window.all("label") if label.name.strip() == "perro"]

    def expect_unheard(self):
        expect(not self.listener.is_heard_out(LONG), "the sound was over too soon to tell")


def pressed_by_a_reader(program, pictures):
    with session(program, pictures) as journey:
        # The answer has no sound: the device forgets the first sound when a second one begins.
        study = Study(journey, seconds=3, answer_sound="")
        study.begin_question()
        study.window.one("push button", "Next").press()
        expect_equal(study.answers(), [], "the answer while the question's sound plays")
        study.expect_unheard()
        journey.desktop.wait_until(study.answers, "the answer")
        expect(study.listener.is_heard_out(LONG), "Next acted before the end of the sound")
        journey.quit()


def ended_at_once(program, pictures):
    """The sound is longer than the journey may last."""
    with session(program, pictures) as journey:
        desktop = journey.desktop
        study = Study(journey, seconds=500, answer_sound=SHORT)
        study.begin_question()
        desktop.key("Escape")
        desktop.key("space")
        desktop.wait_until(study.answers, "the answer after Escape")
        study.expect_unheard()
        desktop.wait_until(lambda: study.listener.is_heard_out(SHORT), "the answer's sound")
        desktop.key("alt+q")
        desktop.wait_until_gone(TITLE)

        journey.to_main()
        study.open()
        study.begin_question()
        study.window.one("push button", "Quit").press()
        desktop.wait_until_gone(TITLE)
        study.expect_unheard()
        journey.quit()


if __name__ == "__main__":
    run(pressed_by_a_reader, ended_at_once)
