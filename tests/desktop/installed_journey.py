"""The program installed in any folder. Stacks are opened as a file manager opens them: the desktop
finds the program by the file's type and starts it as its menu entry says. Whatever a file is called,
its stack is there, and opening changes no file. Samples and help are found beside the program. The
first argument is the build folder."""

import os

from tests.support.installed import Installation, first_session
from tests.support.journey import (TITLE, digest, expect, expect_equal, run, session, settings_of,
                                   stack_of)

NOBODY = 65534
SETTINGS = settings_of("General")
STACK = stack_of("General", "A word", [("coffee", "café")])
IMPORT = "[WinQuib]\r\nQ1=house\r\nA1=Häuschen\r\n".encode("cp1252")
NO_TOPIC = "No Topic for this file.\nAdd one with the Edit CardStack Function."
NAMES = (
    "words.QBC",
    "my first words.qbc",
    "two  blanks.QBC",
    "Grüße aus Köln.QBC",
    "Первые слова.QBC",
    "日本の言葉.QBC",
    "it's \"so\".QBC",
    "\"quoted\".QBC",
    "100% & $HOME; `x` #1.QBC",
    "--style=nothing.QBC",
    "Alte Wörter.QBS",
)


def file_manager(journey, installed):
    """From here on the session knows the installed program, and starts it through the file types."""
    installed.register()
    journey.desktop.program = "gio"
    known = installed.environment()
    journey.desktop.environment.update({key: known[key] for key in ("PATH", "XDG_DATA_DIRS")})
    journey.write_settings(SETTINGS)


def selected_stack(journey):
    window = journey.reader.window(TITLE)
    return window.one("combo box").name if window.all("combo box") else None


def expect_opened(journey, name):
    """Opens a file by its type; its stack is selected in the main window."""
    journey.desktop.start("open", journey.cards / name)
    if name.endswith("QBS"):
        journey.answer_box(NO_TOPIC, "Return")
    journey.wait_for_main()
    stack = name.partition(".")[0]
    journey.desktop.wait_until(lambda: selected_stack(journey) == stack,
                               f"'{stack}' in the list")
    expect(journey.message() is None, f"'{name}' is opened without a message")
    journey.quit()
    journey.desktop.wait_until_gone(TITLE)


def any_name(build, pictures):
    with Installation(build) as installed, session(build, pictures) as journey:
        file_manager(journey, installed)
        for name in NAMES:
            (journey.cards / name).write_bytes(IMPORT if name.endswith("QBS") else STACK)
        before = digest(journey.cards)
        for name in NAMES:
            expect_opened(journey, name)
        expect_equal(digest(journey.cards), before, "the stack files")
        expect_equal(journey.settings.read_bytes(), SETTINGS, "the settings")


def read_only_folder(build, pictures):
    """As root this needs another user, whom a read-only folder stops."""
    user = NOBODY if os.getuid() == 0 else None
    with Installation(build) as installed, session(build, pictures, user=user) as journey:
        file_manager(journey, installed)
        name = "nur gelesen.QBC"
        (journey.cards / name).write_bytes(STACK)
        (journey.cards / name).chmod(0o444)
        journey.cards.chmod(0o555)
        expect_opened(journey, name)
        journey.cards.chmod(0o755)
        expect_equal((journey.cards / name).read_bytes(), STACK, "the stack file")


def first_steps(build, pictures):
    with Installation(build) as installed, session(build, pictures) as journey:
        journey.write_settings(SETTINGS)
        journey.desktop.program = str(installed.program)
        first_session(journey)


if __name__ == "__main__":
    run(any_name, read_only_folder, first_steps)
