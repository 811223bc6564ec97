"""The program as it is once installed, in a folder of its own, and a desktop that knows it."""

import os
import pathlib
import shutil
import subprocess
import tempfile

from tests.support.desktop import DesktopError
from tests.support.journey import TITLE, expect

DIALOG = "Load Stack of Cards"
HELP_TITLE = "Quib!Cards Help"
FRAME = 30  # pixels that a window manager may put around a window


def output(*command, **how):
    """What a command that must succeed says, on both of its channels."""
    result = subprocess.run([*map(str, command)], stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, **how)
    if result.returncode != 0:
        raise DesktopError(f"{' '.join(map(str, command))}: {result.stdout}")
    return result.stdout


class Installation:
    """A prefix with the program in it. Everybody may read it, as on a real system."""

    def __init__(self, build):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quib installed-"))
        self.prefix = self.folder / "prefix"
        self.folder.chmod(0o755)
        output("cmake", "--install", build, "--prefix", self.prefix)
        self.program = self.prefix / "bin" / "quibcards"
        self.share = self.prefix / "share"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder)

    def register(self):
        """Tells the desktop of the file types and of the menu entry, as a package's arrival does."""
        known = self.environment()
        said = output("update-mime-database", self.share / "mime", env=known)
        return said + output("update-desktop-database", self.share / "applications", env=known)

    def environment(self, **more):
        """For programs of a desktop where this is installed, and nothing else is."""
        return {**os.environ, "PATH": f"{self.program.parent}:{os.environ['PATH']}",
                "XDG_DATA_DIRS": str(self.share), **more}


def first_session(journey):
    """What somebody does who has just installed the program: look at its face, load a sample, ask for
    help."""
    desktop = journey.desktop
    journey.start()
    look_at_face(desktop, journey.main)
    dialog = open_dialog(journey)
    documents = str(desktop.home / "Documents")
    expect(dialog.all("label", documents), "loading begins in the documents")
    desktop.key("alt+p", "s")  # the place Samples
    desktop.wait_until(lambda: shows_samples(dialog), "the folder of the samples")
    desktop.key("alt+f")
    desktop.type("flags.QBC")
    desktop.key("Return")
    desktop.wait_until(lambda: journey.reader.window(TITLE).one("combo box").name == "flags",
                       "the sample in the list")
    expect(shows_samples(open_dialog(journey)), "the next time begins in the last folder")
    desktop.key("Escape")
    desktop.wait_until_gone(DIALOG)
    journey.to_main()
    desktop.key("F1")
    desktop.wait_until(lambda: desktop.active_title().endswith(HELP_TITLE), "the help")
    desktop.picture("help")
    expect(journey.message() is None, "the help is found")
    journey.quit()


def open_dialog(journey):
    """It stands in the middle of the screen, give or take its frame."""
    journey.menu("ctrl+o")
    dialog = journey.window(DIALOG)
    left, top, width, height = journey.desktop.geometry(journey.desktop.active_window())
    screen = journey.desktop.look()
    expect(abs(2 * left + width - screen.width) <= FRAME and
           abs(2 * top + height - screen.height) <= 2 * FRAME,
           f"the dialog in the middle: {left}, {top}, {width}, {height}")
    return dialog


def shows_samples(dialog):
    return any(label.name.endswith("/share/quibcards/samples") for label in dialog.all("label"))


def look_at_face(desktop, window):
    """By its class the desktop finds the menu entry of a window; the icon it brings itself."""
    told = output("xprop", "-id", window, "WM_CLASS", "_NET_WM_ICON", env=desktop.environment)
    expect('"quibcards", "quibcards"' in told, f"the window's class: {told}")
    expect("Icon (16 x 16)" in told, f"the small icon: {told[:400]}")
