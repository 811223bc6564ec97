"""A stack studied by ear: nothing is looked at and no key is pressed. Windows are read, buttons are
pressed, and answers are given through the desktop's accessibility library; questions and verdicts
are what the program says of its own accord."""

import re

from tests.support.journey import TITLE, expect, expect_equal, run, session, settings_of, stack_of
from tests.support.listener import Listener, all_of, one, press, type_into, unnamed

CARDS = {"dog": "perro", "cat": "gato", "house": "casa", "fish": "pez"}
SPELLER = "Speller - words (Spanish)"
CHOOSER = "Chooser - words (Spanish)"
STEPPER = "Stepper - words (Spanish)"


def open_study(listener, mode, title):
    press(one(listener.window(TITLE, ("push button", mode)), "push button", mode))
    timer = listener.window("Set Timer")
    expect_equal(unnamed(timer), [], "what has no name in the timer's window")
    press(one(timer, "push button", "OK"))
    window = listener.window(title)
    expect_equal(unnamed(window), [], f"what has no name in '{title}'")
    return window


def hear_question(listener, number):
    """Returns the question, and the choices if there are any."""
    words = listener.next_words()
    match = re.fullmatch(rf"Card {number} of 4\. Question: (\w+)\.((?: \d: \w+\.)*)", words)
    expect(match, f"no question number {number}: {words!r}")
    return match[1], re.findall(r"(\d): (\w+)\.", match[2])


def end(listener, title):
    """Hears that there are no more cards, and leaves."""
    box = listener.window(TITLE, ("label", "No more cards - Restart?"))
    press(one(box, "push button", "No"))
    listener.wait_until_gone(title)


def spell(listener):
    window = open_study(listener, "Speller", SPELLER)
    field = one(window, "text", "Your answer:")
    right = 0
    for number in range(1, 5):
        press(one(window, "push button", "Next"))
        question, _ = hear_question(listener, number)
        answer = CARDS[question]
        spoils = number == 2
        type_into(field, "wrong" if spoils else answer.upper())
        press(one(window, "push button", "Next"))
        right += not spoils
        listener.hears(f"{'Wrong' if spoils else 'Right'}. Correct answer: {answer}. "
                       f"{right} right, {number - right} wrong.")
        expect_equal([mark.get_name() for mark in all_of(window, "image")],
                     ["Wrong" if spoils else "Right"], "the marks")
    press(one(window, "push button", "Next"))
    end(listener, SPELLER)


def choose(listener):
    window = open_study(listener, "Chooser", CHOOSER)
    for number in range(1, 5):
        press(one(window, "push button", "Next"))
        question, choices = hear_question(listener, number)
        expect_equal([key for key, _ in choices], ["1", "2", "3", "4"], "the choices' numbers")
        answer = CARDS[question]
        options = all_of(window, "radio button", answer)  # it can stand there twice
        expect(options, f"'{answer}' is not among the choices")
        press(options[0], "Toggle")
        listener.hears(f"Right. {number} right, 0 wrong.")
    press(one(window, "push button", "Next"))
    end(listener, CHOOSER)


def step(listener):
    window = open_study(listener, "Stepper", STEPPER)
    press(one(window, "push button", "Next"))
    question, _ = hear_question(listener, 1)
    press(one(window, "push button", "Next"))
    listener.hears(f"Answer: {CARDS[question]}.")
    press(one(window, "radio button", "Back"), "Toggle")
    listener.hears(f"Question: {CARDS[question]}. Answer: {question}.")
    press(one(window, "push button", "Quit"))
    listener.wait_until_gone(STEPPER)


def by_ear(program, pictures):
    with session(program, pictures) as journey:
        journey.write_settings(settings_of("General", "Spanish"))
        path = journey.cards / "words.QBC"
        path.write_bytes(stack_of("Spanish", "Four words", CARDS.items()))
        before = path.read_bytes()
        listener = Listener(journey.desktop)
        journey.start(path)
        main = listener.window(TITLE, ("push button", "Load"))
        expect_equal(unnamed(main), [], "what has no name in the main window")
        spell(listener)
        choose(listener)
        step(listener)
        expect_equal(listener.announcements, [], "what was said besides")
        press(one(main, "menu item", "Quit", hidden=True))
        journey.desktop.wait_for_end()
        expect_equal(path.read_bytes(), before, "the stack's file")


if __name__ == "__main__":
    run(by_ear)
