"""What becomes of a stack, and of what was typed, when it can't be saved: on a full disk, in a
folder that takes nothing, over a file that somebody else has saved meanwhile, be it a second one of
this program."""

import os
import subprocess

from tests.support.authoring import (CHANGED, ERROR_TITLE, OVERWRITE, SETTINGS, WORDS, choose_file,
                                     edit_title, saved_again, start_editing)
from tests.support.journey import expect_equal, run, session, settings_of, stack_of


class FailingSave:
    """A stack under change that can't be saved where its file is."""

    def __init__(self, journey):
        self.journey, self.desktop = journey, journey.desktop
        self.path = journey.cards / "words.QBC"
        self.path.write_bytes(WORDS)

    def edit(self):
        self.journey.start(self.path, before=self.before())
        self.editor = start_editing(self.journey, "words", "Spanish")
        self.editor.row("coffee")
        self.editor.enter("Front text", "black coffee")

    def before(self):
        return ()

    def save_onto_itself(self):
        self.editor.button("Save/End")
        self.desktop.wait_for("Save Stack of Cards")
        self.desktop.key("Return")

    def expect_nothing_lost(self):
        """The file is whole, nothing lies about, and what was typed still stands there."""
        expect_equal(self.path.read_bytes(), WORDS, "the old file")
        expect_equal(os.listdir(self.journey.cards), ["words.QBC"], "the folder")
        expect_equal(self.editor.field("Front text").text, "black coffee", "the typed text")

    def expected(self):
        lines = saved_again(WORDS).split(b"\r\n")
        lines[2] = b"black coffee  "
        return b"\r\n".join(lines)


class LimitedSave(FailingSave):
    """Files can be kept from growing, as on a full disk."""

    def before(self):
        return ("sh", "-c", "trap '' XFSZ; exec \"$@\"", "sh")

    def set_limit(self, size):
        subprocess.run(["prlimit", "--pid", str(self.desktop.application.pid), f"--fsize={size}:"],
                       check=True)


def full_disk(program, pictures):
    with session(program, pictures) as journey:
        journey.write_settings(SETTINGS)
        save = LimitedSave(journey)
        save.edit()
        save.set_limit(100)
        save.save_onto_itself()
        journey.answer_box(OVERWRITE, "Return")
        journey.answer_box("Disk full", "Return", picture="disk-full", title=ERROR_TITLE)
        journey.desktop.wait_for(edit_title("words", "Spanish"))
        save.expect_nothing_lost()
        save.set_limit("unlimited")
        save.save_onto_itself()
        journey.answer_box(OVERWRITE, "Return")
        journey.expect_file(save.path, save.expected())
        journey.quit()


def read_only_folder(program, pictures):
    nobody = 65534
    if os.getuid() == 0:
        may = subprocess.run(["setpriv", f"--reuid={nobody}", "--clear-groups", "test", "-x",
                              program], check=False)
        if may.returncode != 0:
            print(f"skipped read_only_folder: user {nobody} may not run {program}")
            return
    with session(program, pictures, user=nobody if os.getuid() == 0 else None) as journey:
        journey.write_settings(SETTINGS)
        save = FailingSave(journey)
        save.path.chmod(0o444)
        journey.cards.chmod(0o555)
        save.edit()
        save.save_onto_itself()
        journey.answer_box(OVERWRITE, "Return")
        journey.answer_box("Your path specification was invalid.", "Return", picture="read-only",
                           title=ERROR_TITLE)
        journey.desktop.wait_for("Save Stack of Cards")
        journey.desktop.key("Escape")
        journey.desktop.wait_for(edit_title("words", "Spanish"))
        save.expect_nothing_lost()
        journey.cards.chmod(0o777)
        save.path.chmod(0o666)
        save.save_onto_itself()
        journey.answer_box(OVERWRITE, "Return")
        journey.expect_file(save.path, save.expected())
        journey.quit()


def changed_meanwhile(program, pictures):
    """Somebody else has saved the file while it was being edited: the usual question does not say so,
    a second one does, and whoever just presses Enter keeps the file."""
    with session(program, pictures) as journey:
        journey.write_settings(SETTINGS)
        save = FailingSave(journey)
        save.edit()
        theirs = stack_of("Spanish", "Theirs", [("theirs", "suyo")])
        save.path.write_bytes(theirs)
        save.save_onto_itself()
        journey.answer_box(OVERWRITE, "Escape")
        expect_equal(save.path.read_bytes(), theirs, "the other's file")
        journey.desktop.wait_for("Save Stack of Cards")
        journey.desktop.key("Return")
        journey.answer_box(OVERWRITE, "Return")
        journey.answer_box(CHANGED, "Return", picture="changed-meanwhile")
        expect_equal(save.path.read_bytes(), theirs, "the other's file")
        choose_file(journey, "mine.QBC")
        journey.expect_file(journey.cards / "mine.QBC", save.expected())
        expect_equal(save.path.read_bytes(), theirs, "the other's file")
        expect_equal(sorted(os.listdir(journey.cards)), ["mine.QBC", "words.QBC"], "the folder")
        journey.quit()


def two_programs(program, pictures):
    """Two programs at once, with one settings file, which both make, and one stack."""
    with session(program, pictures, "first") as first, \
            session(program, pictures, "second") as second:
        second.desktop.environment["XDG_CONFIG_HOME"] = first.desktop.environment["XDG_CONFIG_HOME"]
        first.cards.joinpath("words.QBC").write_bytes(WORDS)
        path = first.cards / "words.QBC"
        for journey in (first, second):
            journey.desktop.start(path)
        for journey in (first, second):
            journey.answer_box("Spanish is not a configured Topic.  Add it?", "n")
            journey.main = journey.desktop.wait_until(journey._main_window, "the main window")
        first.expect_file(first.settings, settings_of("General"))
        editors = [start_editing(journey, "words", "General") for journey in (first, second)]
        for editor, text in zip(editors, ("first", "second")):
            editor.row("coffee")
            editor.enter("Front text", text)

        expected = saved_again(WORDS).replace(b"Spanish", b"General", 1)
        editors[1].button("Save/End")
        second.desktop.wait_for("Save Stack of Cards")
        second.desktop.key("Return")
        second.answer_box(OVERWRITE, "Return")
        theirs = expected.replace(b"coffee    ", b"second  ")
        second.expect_file(path, theirs)

        editors[0].button("Save/End")
        first.desktop.wait_for("Save Stack of Cards")
        first.desktop.key("Return")
        first.answer_box(OVERWRITE, "Return")
        first.answer_box(CHANGED, "Escape")
        expect_equal(path.read_bytes(), theirs, "the other program's file")
        first.desktop.wait_for("Save Stack of Cards")
        first.desktop.key("Return")
        first.answer_box(OVERWRITE, "Return")
        first.answer_box(CHANGED, "Tab", "space")
        first.expect_file(path, expected.replace(b"coffee    ", b"first  "))
        for journey in (first, second):
            journey.quit()
        expect_equal(first.settings.read_bytes(), settings_of("General"), "the settings")


if __name__ == "__main__":
    run(full_disk, read_only_folder, changed_meanwhile, two_programs)
