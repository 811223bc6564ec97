"""What becomes of a stack, and of what was typed, when it can't be saved: on a full disk, in a
folder that takes nothing, over a file that somebody else has saved meanwhile."""

import os
import subprocess

from tests.support.authoring import (ERROR_TITLE, OVERWRITE, SETTINGS, WORDS, choose_file,
                                     edit_title, saved_again, start_editing)
from tests.support.journey import expect_equal, run, session, stack_of


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
    """Somebody else has saved the file while it was being edited: only the question stands between
    the two, and a no to it must hold."""
    with session(program, pictures) as journey:
        journey.write_settings(SETTINGS)
        save = FailingSave(journey)
        save.edit()
        theirs = stack_of("Spanish", "Theirs", [("theirs", "suyo")])
        save.path.write_bytes(theirs)
        save.save_onto_itself()
        journey.answer_box(OVERWRITE, "Escape", picture="changed-meanwhile")
        expect_equal(save.path.read_bytes(), theirs, "the other's file")
        choose_file(journey, "mine.QBC")
        journey.expect_file(journey.cards / "mine.QBC", save.expected())
        expect_equal(save.path.read_bytes(), theirs, "the other's file")
        expect_equal(sorted(os.listdir(journey.cards)), ["mine.QBC", "words.QBC"], "the folder")
        journey.quit()


if __name__ == "__main__":
    run(full_disk, read_only_folder, changed_meanwhile)
