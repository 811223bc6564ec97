"""From the first typed card to the saved file: create a stack, study it, change everything about
it, fill it to its limit. Files are compared byte for byte."""

from tests.support.authoring import (OVERWRITE, SETTINGS, WORDS, CardWindow, add_cards, card_lines,
                                     choose_file, edit_title, saved_again, start_editing)
from tests.support.journey import TITLE, expect_equal, run, session, stack_of


def create_and_study(program, pictures):
    with session(program, pictures) as journey:
        journey.write_settings(SETTINGS)
        # A stack to start from, so that its folder is the one to save into.
        first = journey.cards / "first.QBC"
        first.write_bytes(stack_of("General", "First", [("a", "b")]))
        journey.start(first)
        journey.menu("alt+t", "Down", "Return")  # the second topic
        journey.desktop.wait_until(
            lambda: journey.reader.window(TITLE).all("label", "1 card, topic Spanish"), "Spanish")
        create(journey)
        journey.quit()
        path = journey.cards / "words.QBC"
        journey.expect_file(path, WORDS)

        journey.start(path)
        study_all(journey, "Stepper - words (Spanish)", 5)
        journey.quit()
        journey.expect_file(path, WORDS)
        expect_equal(journey.settings.read_bytes(), SETTINGS, "the settings")


def create(journey):
    e_acute, n_tilde = ["ctrl+e"], ["ctrl+alt+n"]
    journey.menu("alt+f", "c")
    creating = CardWindow(journey, "Create Cards - Spanish")
    for card in [("coffee", ("caf", e_acute)), ("the cat^el gato", "gato"),
                 ("tomorrow", ("ma", n_tilde, "ana")), ("year", ("a", n_tilde, "o"))]:
        creating.enter_card(*card)
        journey.desktop.key("Return")  # types nothing, presses nothing
        creating.button("Continue")
        journey.wait_for_text(creating.field("Front text"), "")
    creating.enter_card("France", "Francia")
    creating.enter("Front sound", "france.wav")
    creating.enter("Front picture", "france.bmp")
    journey.desktop.picture("creating")
    creating.button("Save/End")
    choose_file(journey, "words")
    journey.desktop.wait_for("Enter File Description")
    journey.desktop.type("Five words and a flag")
    journey.desktop.picture("description")
    journey.desktop.key("Return")
    journey.desktop.wait_until_gone("Create Cards - Spanish")


def study_all(journey, title, count):
    window = journey.study("s", title)
    for number in range(1, count + 1):
        journey.desktop.key("space")
        journey.desktop.wait_until(lambda: window.all("label", f"{number}/{count}"), "the count")
        journey.desktop.key("space")
        journey.desktop.wait_until(lambda: window.one("push button", "Redo").enabled, "the answer")
        journey.desktop.picture(f"studied-{number}")
    journey.desktop.key("space")
    journey.answer_box("No more cards - Restart?", "alt+n")
    journey.desktop.wait_until_gone(title)


def edit_everything(program, pictures):
    with session(program, pictures) as journey:
        desktop = journey.desktop
        journey.write_settings(SETTINGS)
        path = journey.cards / "words.QBC"
        path.write_bytes(WORDS)
        journey.start(path)
        editor = start_editing(journey, "words", "Spanish")

        editor.row("coffee")
        editor.enter("Front text", "black coffee")
        for text in ("gato", "mañana"):
            editor.row(text)
            editor.button("Delete Card")
        editor.row("tomorrow")
        editor.button("Delete Card")  # not this one after all
        desktop.picture("marked")
        add_cards(editor, "words", "Spanish", ("one", "uno"), ("two", "dos"))
        editor = CardWindow(journey, edit_title("words", "Spanish"))
        find(journey, editor)
        change_topic_and_description(journey)

        changed = CardWindow(journey, edit_title("words", "French"))
        changed.button("Save/End")
        choose_file(journey, "more words.QBC")
        desktop.wait_until_gone(edit_title("words", "French"))
        expect_equal(path.read_bytes(), WORDS, "the first file")
        lines = saved_again(WORDS).split(b"\r\n")
        del lines[4:6]  # the cat
        lines[:3] = [b"French", b"Six words".ljust(64), b"black coffee  "]
        journey.expect_file(journey.cards / "more words.QBC",
                            b"\r\n".join(lines) + card_lines(("one", "uno"), ("two", "dos")))
        expect_equal(journey.reader.window(TITLE).one("combo box").name, "more words",
                     "the stack's name")
        journey.quit()


def find(journey, editor):
    journey.desktop.key("ctrl+f")
    finder = CardWindow(journey, "Finder - Using words")
    finder.enter("Find what", "o")  # also in "two"
    finder.button("OK")
    journey.desktop.wait_for(edit_title("words", "Spanish"))
    for back in ("café", "mañana", "año", "uno", "dos"):
        if back != "café":
            journey.desktop.key("F3")
        if back == "mañana":
            # The cat is marked, but still there.
            journey.desktop.wait_until(
                lambda: editor.field("Back text").text.rstrip(" ") == "gato", "the cat")
            journey.desktop.key("F3")
        journey.desktop.wait_until(
            lambda: editor.field("Back text").text.rstrip(" ") == back, f"the card of {back}")
    journey.desktop.picture("found")
    journey.desktop.key("F3")
    journey.answer_box("Text Not Found", "Return")
    expect_equal(editor.field("Back text").text, "dos", "the card that was found last")


def change_topic_and_description(journey):
    desktop = journey.desktop
    desktop.key("alt+n", "t")
    topic = journey.window("Change Topic")
    desktop.click_thing(topic.one("list").children()[2])
    desktop.click_thing(topic.one("push button", "Change"))
    desktop.wait_for(edit_title("words", "French"))
    desktop.key("alt+n", "d")
    description = journey.window("Change File Description")
    journey.wait_for_text(description.one("text", "Description"), "Five words and a flag")
    desktop.key("ctrl+a")
    desktop.type("Six words")
    desktop.key("Return")


def fill_to_the_limit(program, pictures):
    with session(program, pictures) as journey:
        journey.write_settings(SETTINGS)
        path = journey.cards / "full.QBC"
        cards = [(f"front {number}", f"back {number}") for number in range(1, 300)]
        path.write_bytes(stack_of("General", "Nearly full", cards))
        journey.start(path)
        editor = start_editing(journey, "full", "General")
        editor.button("Add Cards")
        adding = CardWindow(journey, f"Add Cards to {'full'.ljust(256)} (General)")
        adding.enter_card("the last", "one")
        adding.button("Continue")
        journey.wait_for_text(adding.field("Front text"), "")
        adding.enter_card("one", "too many")
        adding.button("Continue")
        journey.answer_box("Maximum of 300 Cards per Stack", "Return", picture="limit")
        adding.button("Done")
        journey.desktop.wait_for(edit_title("full", "General"))
        editor.button("Save/End")
        journey.desktop.wait_for("Save Stack of Cards")
        journey.desktop.key("Return")  # under its own name
        journey.answer_box(OVERWRITE, "Return")
        journey.expect_file(path, saved_again(stack_of("General", "Nearly full", cards)) +
                            card_lines(("the last", "one")))
        journey.quit()


if __name__ == "__main__":
    run(create_and_study, edit_everything, fill_to_the_limit)
