"""What all journeys do: prepare a home, start the program, answer its questions, compare files."""

import contextlib
import hashlib
import pathlib
import sys
import traceback

from tests.support.desktop import Desktop, DesktopError
from tests.support.screenreader import BusError

TITLE = "Quib!Cards 5.50"
FONTS = ("FRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
         "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n")


def expect(condition, what):
    if not condition:
        raise DesktopError(what)


def expect_equal(seen, expected, what):
    expect(seen == expected, f"{what}:\n  expected {expected!r}\n  seen     {seen!r}")


def digest(folder):
    return {path.name: hashlib.sha256(path.read_bytes()).hexdigest()
            for path in sorted(folder.iterdir())}


def keys_line(keys=""):
    """The line of the settings file that holds a topic's key assignments."""
    return "KEYS=" + keys.ljust(120) + "\r\n"


def settings_of(*topics):
    """A settings file with these topics, each a name or a name and its key assignments."""
    names = [topic if isinstance(topic, str) else topic[0] for topic in topics]
    lines = ["[TOPICS]\r\nDEFAULT=0\r\n"]
    lines += [f"{number}={name}\r\n" for number, name in enumerate(names)]
    for topic, name in zip(topics, names):
        lines.append(f"[{name}]\r\n" + FONTS)
        if topic != name:
            lines.append(keys_line(topic[1]))
    return "".join(lines).encode("cp1252")


def stack_of(topic, description, cards):
    """A stack file; each side is a text, or a text, a sound and a picture."""
    lines = [topic, description.ljust(64)]
    for card in cards:
        for side in card:
            text, sound, picture = (side, "", "") if isinstance(side, str) else side
            lines.append(f"{text} {sound} {picture}")
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


class Journey:
    """A session at a desktop: windows by their titles, their parts as a screen reader finds
    them."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.reader = desktop.reader
        self.cards = desktop.home / "cards"
        self.cards.mkdir()
        self.settings = desktop.home / "config" / "quibcards" / "QUIBCRDS.INI"
        self.main = None

    def write_settings(self, content):
        self.settings.parent.mkdir(parents=True)
        self.settings.write_bytes(content)

    def start(self, *arguments, **how):
        self.desktop.start(*arguments, **how)
        self.wait_for_main()

    def wait_for_main(self):
        self.main = self.desktop.wait_until(self._main_window, "the main window")
        self.to_main()

    def _main_window(self):
        """The main window, once the splash (which has the same title) is no longer alone."""
        windows = self.desktop.windows(TITLE)
        return next((w for w in windows if self.desktop.geometry(w)[2] > 400), None)

    def quit(self):
        self.menu("ctrl+q")
        self.desktop.wait_for_end()

    def menu(self, *keys):
        """Goes to the main window and chooses a command there."""
        self.to_main()
        self.desktop.key(*keys)

    def to_main(self):
        self.desktop.raise_window(self.main)

    def answer_box(self, text, *keys, picture=None, title=TITLE):
        """Waits for the message box with exactly this text, and answers it."""
        self.desktop.wait_until(self.message, f"the message '{text}'")
        self.desktop.wait_for(title)
        expect_equal(self.message(), text, "the message")
        if picture:
            self.desktop.picture(picture)
        self.desktop.key(*keys)
        self.desktop.wait_until(lambda: self.message() != text, f"the end of '{text}'")

    def message(self):
        try:
            return self.reader.message()
        except (BusError, IndexError):
            return None  # it has just opened or just gone

    def window(self, title):
        """The window with this title, once it has the keyboard."""
        self.desktop.wait_for(title)
        return self.desktop.wait_until(lambda: self.reader.window(title), f"'{title}' to be read")

    def study(self, key, title):
        """Chooses a study mode and leaves the timer as it is."""
        self.menu("alt+s", key)
        self.desktop.wait_for("Set Timer")
        self.desktop.key("Return")
        self.desktop.wait_for(title)
        return self.window(title)

    def wait_for_text(self, field, text):
        self.desktop.wait_until(lambda: field.text == text, f"'{text}' in the field")

    def load(self, path):
        """Loads a stack file through the dialog; questions that follow are the caller's."""
        self.menu("ctrl+o")
        self.desktop.wait_for("Load Stack of Cards")
        self.desktop.type(path.name)
        self.desktop.key("Return")

    def expect_file(self, path, content):
        """Waits until a file has this content, byte for byte."""
        def same():
            return path.exists() and path.read_bytes() == content
        try:
            self.desktop.wait_until(same, f"{path.name} as expected")
        except DesktopError:
            seen = path.read_bytes() if path.exists() else None
            expect_equal(seen, content, f"the content of {path.name}")


@contextlib.contextmanager
def session(program, pictures, name="", **options):
    with Desktop(program, pathlib.Path(pictures) / name, reader=True, **options) as desktop:
        yield Journey(desktop)


def run(*journeys):
    """Runs each journey with the program and the picture folder of the command line, and says how
    many went well. Further arguments name the journeys to run."""
    program, pictures, *wanted = sys.argv[1:]
    chosen = [journey for journey in journeys if not wanted or journey.__name__ in wanted]
    failed = 0
    for journey in chosen:
        try:
            journey(program, pathlib.Path(pictures) / journey.__name__)
            print(f"ok      {journey.__name__}", flush=True)
        except (DesktopError, BusError, OSError):
            failed += 1
            traceback.print_exc()
            print(f"FAILED  {journey.__name__}", flush=True)
    print(f"{len(chosen) - failed} passed, {failed} failed")
    sys.exit(failed != 0)
