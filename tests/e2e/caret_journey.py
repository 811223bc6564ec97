"""A new stack with a caret: the message names the card, the window leads to it, and with another sign
in its place the stack is saved. In the editor the menu Edit acts on what is selected."""

from tests.support.authoring import (ERROR_TITLE, OVERWRITE, SETTINGS, CardWindow, card_lines,
                                     choose_file, edit_title, start_editing)
from tests.support.journey import expect, expect_equal, run, session, stack_of


def correct_a_caret(program, pictures):
    with session(program, pictures, "caret") as journey:
        desktop = journey.desktop
        journey.write_settings(SETTINGS)
        first = journey.cards / "first.QBC"
        first.write_bytes(stack_of("General", "First", [("a", "b")]))
        journey.start(first)
        journey.menu("alt+f", "c")
        creating = CardWindow(journey, "Create Cards - General")
        for card in (("one^line", "uno"), ("2^^3", "8"), ("two", "dos")):
            creating.enter_card(*card)
            desktop.key("ctrl+Return")
            journey.wait_for_text(creating.field("Front text"), "")
        creating.button("Save/End")
        choose_file(journey, "powers")
        desktop.wait_for("Enter File Description")
        desktop.key("Return")
        journey.answer_box("Overflow", "Return", picture="overflow", title=ERROR_TITLE)
        left = journey.cards / "powers.QBC"
        expect(left.read_bytes().endswith(card_lines(("one^line", "uno"))), "only whole cards left")
        desktop.key("Escape")
        desktop.wait_for("Create Cards - General")
        journey.wait_for_text(creating.field("Front text"), "2^^3")
        desktop.picture("correcting")
        desktop.type(" to the ")  # over the caret, which is marked
        creating.button("Save/End")
        choose_file(journey, "powers")
        desktop.wait_for("Enter File Description")
        desktop.key("Return")
        journey.answer_box(OVERWRITE, "Return")
        desktop.wait_until_gone("Create Cards - General")
        journey.expect_file(left, stack_of("General", "", []) + card_lines(
            ("one^line", "uno"), ("2 to the 3", "8"), ("two", "dos")))
        journey.quit()


def cut_by_keys(program, pictures):
    with session(program, pictures, "cut") as journey:
        desktop = journey.desktop
        journey.write_settings(SETTINGS)
        path = journey.cards / "words.QBC"
        path.write_bytes(stack_of("General", "", [("dog", "perro"), ("cat", "gato")]))
        journey.start(path)
        editor = start_editing(journey, "words", "General")
        editor.row("dog")
        editor.enter("Front text", "hound")
        desktop.key("ctrl+a")
        desktop.key("alt+e", "t")
        journey.wait_for_text(editor.field("Front text"), "")
        desktop.key("alt+e", "p")
        journey.wait_for_text(editor.field("Front text"), "hound")
        desktop.key("alt+d", "Down", "alt+d", "Up", "alt+d")  # the cat alone stays marked
        desktop.picture("marked-by-keys")
        desktop.key("alt+s")
        choose_file(journey, "words")
        journey.answer_box(OVERWRITE, "Return")
        desktop.wait_until_gone(edit_title("words", "General"))
        expect_equal(path.read_bytes(),
                     stack_of("General", "", []) + b"hound  \r\nperro    \r\n", "the file")
        journey.quit()


if __name__ == "__main__":
    run(correct_a_caret, cut_by_keys)
