"""A newcomer's first session: start on a stack, step through all of it, turn it over, redo a card,
restart; study it timed; load it through the dialog; and leave everything on disk as it was."""

import time

from tests.support.journey import (digest, expect, expect_equal, run, session, settings_of,
                                   stack_of)

SETTINGS = settings_of("General", "Spanish")
CARDS = [("dog", "perro"), ("cat", "gato"), ("house", "casa")]


def prepare(journey):
    journey.write_settings(SETTINGS)
    stack = journey.cards / "first words.QBC"
    stack.write_bytes(stack_of("Spanish", "Three words", CARDS))
    return stack, digest(journey.cards)


def expect_files_untouched(journey, before):
    expect_equal(digest(journey.cards), before, "the stack files")
    expect_equal(journey.settings.read_bytes(), SETTINGS, "the settings")


def open_timer(journey, key):
    journey.menu("alt+s", key)
    journey.desktop.wait_for("Set Timer")


def step_through(journey, title):
    window = journey.desktop.wait_for(title)
    for number, _ in enumerate(CARDS, 1):
        question = turn(journey, window)
        journey.desktop.picture(f"question-{number}")
        answer = turn(journey, window)
        expect(question != answer, "the answer did not appear")
    return window


def turn(journey, window):
    """Presses Next and waits until the window shows something else."""
    before = journey.desktop.look_at(window)
    journey.desktop.key("space")
    journey.desktop.wait_until(lambda: journey.desktop.look_at(window) != before, "the next step")
    return journey.desktop.settled_look_at(window)


def whole_pass(journey):
    desktop = journey.desktop
    desktop.picture("main")
    title = "Stepper - first words (Spanish)"
    open_timer(journey, "s")
    desktop.picture("timer")
    desktop.key("Return")
    window = step_through(journey, title)

    # Turned over with Back, the card looks different; turned back, the same again.
    shown = desktop.settled_look_at(window)
    desktop.key("alt+b")
    desktop.wait_until(lambda: desktop.look_at(window) != shown, "the turned card")
    desktop.picture("turned-over")
    desktop.key("alt+f")
    desktop.settled_look_at(window)

    # A redone last card comes once more, so the pass ends one card later.
    desktop.key("alt+r")
    turn(journey, window)
    turn(journey, window)
    desktop.key("space")
    journey.answer_box("No more cards - Restart?", "alt+y", picture="no-more-cards")
    desktop.wait_for(title)
    desktop.settled_look_at(window)
    desktop.picture("restarted")
    step_through(journey, title)
    desktop.key("space")
    journey.answer_box("No more cards - Restart?", "Escape")
    desktop.wait_until_gone(title)


def timed(journey):
    desktop = journey.desktop
    title = "Quibber - first words (Spanish)"
    open_timer(journey, "q")
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
    journey.menu("ctrl+o")
    desktop.wait_for("Load Stack of Cards")
    desktop.picture("load")
    desktop.type("absent.QBC")
    desktop.key("Return")
    journey.answer_box("The file was not found.", "Return", picture="not-found",
                       title="Quib!Cards 5.50 Error")
    desktop.wait_for("Load Stack of Cards")
    desktop.key("ctrl+a")
    desktop.type("first words.QBC")
    desktop.key("Return")
    desktop.wait_until_gone("Load Stack of Cards")
    whole_pass(journey)


def first_session(program, pictures):
    with session(program, pictures) as journey:
        stack, before = prepare(journey)
        journey.start(stack)
        whole_pass(journey)
        timed(journey)
        journey.quit()
        expect_files_untouched(journey, before)


def from_a_shell(program, pictures):
    with session(program, pictures) as journey:
        _, before = prepare(journey)
        # A bare name: the current folder has it, so it becomes the default folder.
        journey.start("first words", folder=journey.cards)
        load_through_the_dialog(journey)
        journey.quit()
        expect_files_untouched(journey, before)


if __name__ == "__main__":
    run(first_session, from_a_shell)
