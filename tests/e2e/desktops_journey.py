"""Keys mean the same on a desktop with habits of its own: GNOME's lets Enter press any button, and
lays the buttons of a question out the other way round."""

from tests.support.authoring import SETTINGS, WORDS, CardWindow, edit_title, start_editing
from tests.support.journey import run, session


def gnome(program, pictures):
    with session(program, pictures, kind="GNOME") as journey:
        desktop = journey.desktop
        journey.write_settings(SETTINGS)
        path = journey.cards / "words.QBC"
        path.write_bytes(WORDS)
        journey.start(path)

        title = "Stepper - words (Spanish)"
        study = journey.study("s", title)  # Enter, from an option
        for number in range(1, 6):
            desktop.key("space")
            desktop.wait_until(lambda: study.all("label", f"{number}/5"), "the count")
            desktop.key("Return")
            desktop.wait_until(lambda: study.one("push button", "Redo").enabled, "the answer")
        desktop.key("space")
        journey.answer_box("No more cards - Restart?", "Return")  # Yes
        desktop.wait_until(lambda: not study.all("label", "5/5"), "the new round")
        desktop.key("alt+F4")
        desktop.wait_until_gone(title)

        editor = start_editing(journey, "words", "Spanish")
        editor.button("Add Cards")
        adding = CardWindow(journey, f"Add Cards to {'words'.ljust(256)} (Spanish)")
        adding.enter_card("one", "uno")
        desktop.key("ctrl+Return")
        journey.wait_for_text(adding.field("Front text"), "")
        adding.button("Done")
        editor = CardWindow(journey, edit_title("words", "Spanish"))
        desktop.key("ctrl+f")
        finder = CardWindow(journey, "Finder - Using words")
        finder.enter("Find what", "gato")
        desktop.key("Return")
        desktop.wait_for(edit_title("words", "Spanish"))
        desktop.wait_until(lambda: editor.field("Back text").text.rstrip(" ") == "gato", "the cat")
        desktop.key("alt+F4")
        journey.answer_box("Changes will not be saved to disk.\nDo you wish to save changes?",
                           "alt+n")
        desktop.wait_until_gone(edit_title("words", "Spanish"))
        journey.quit()


if __name__ == "__main__":
    run(gnome)
