"""A virtual desktop with the built program on it, driven by keys and clicks as its user would."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

from tests.support.screenreader import ScreenReader

PATIENCE = 20  # seconds that a window or a change may take on a busy machine


class DesktopError(AssertionError):
    """What the user would have expected did not happen."""


class Picture:
    """A screenshot as rows of RGB bytes."""

    def __init__(self, ppm: bytes):
        header, size, _, self.pixels = ppm.split(b"\n", 3)
        if header != b"P6":
            raise DesktopError("not a picture")
        self.width, self.height = map(int, size.split())

    def crop(self, x, y, width, height):
        rows = []
        for row in range(y, y + height):
            start = (row * self.width + x) * 3
            rows.append(self.pixels[start : start + width * 3])
        return b"".join(rows)


class Desktop:
    """Xvfb, a window manager, a private home, and the program. `kind` is the desktop that this
    claims to be, as in XDG_CURRENT_DESKTOP; the toolkit follows its habits."""

    def __init__(self, program, pictures, size="1280x800", scale=1.0, dark=False,
                 reader=False, user=None, kind=""):
        self.program = str(program)
        self.pictures = pathlib.Path(pictures)
        self.pictures.mkdir(parents=True, exist_ok=True)
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="quib-desktop-"))
        (self.home / "Documents").mkdir()
        self.processes = []
        self.application = None
        # As root, the program can be run as another user, whom a read-only folder stops.
        self.as_user = []
        if user is not None:
            self.as_user = ["setpriv", f"--reuid={user}", f"--regid={user}", "--clear-groups"]
            for folder in (self.home, self.home / "Documents"):
                os.chown(folder, user, user)
        self.environment = dict(
            os.environ,
            HOME=str(self.home),
            XDG_CONFIG_HOME=str(self.home / "config"),
            XDG_DATA_HOME=str(self.home / "data"),
            XDG_STATE_HOME=str(self.home / "state"),
            XDG_RUNTIME_DIR=str(self.home),
            QT_QPA_PLATFORM="xcb",
            XDG_CURRENT_DESKTOP=kind,
            QT_SCALE_FACTOR=str(scale),
            LC_ALL="C.UTF-8",
        )
        if dark:
            self.environment["QT_QPA_PLATFORMTHEME"] = "gtk3"
        self.reader = None
        try:
            self._start_display(size)
            if reader:
                self._start_reader(user)
        except BaseException:
            self.close()
            raise
    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        reader = [] if self.reader is None else [self.reader.daemon]
        for process in [self.application, *reader, *reversed(self.processes)]:
            if process is not None and process.poll() is None:
                process.terminate()
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.kill()
        shutil.rmtree(self.home, ignore_errors=True)

    def _start_display(self, size):
        # The server picks a free display and says which.
        read, write = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-noreset",
             "-nolisten", "tcp"],
            pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.processes.append(server)
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise DesktopError("Xvfb did not start")
        self.environment["DISPLAY"] = ":" + number
        self.processes.append(subprocess.Popen(
            ["openbox"], env=self.environment, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL))
        self.wait_until(lambda: "_NET_SUPPORTING_WM_CHECK" in self._run_quietly(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK") and "window id" in self._run_quietly(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def _run_quietly(self, *command):
        result = subprocess.run(command, env=self.environment, capture_output=True, text=True)
        return result.stdout

    def _start_reader(self, user):
        self.reader = ScreenReader(self.home, self.environment, self.as_user, user)
        self.environment.update(self.reader.environment)

    def start(self, *arguments, folder=None, before=()):
        """Starts the program, `before` being a command that starts it in turn."""
        self.application = subprocess.Popen(
            [*self.as_user, *before, self.program, *map(str, arguments)], env=self.environment,
            cwd=folder or self.home)

    def wait_for_end(self):
        """Waits until the program has ended; fails unless it ended well."""
        try:
            code = self.application.wait(PATIENCE)
        except subprocess.TimeoutExpired as error:
            raise DesktopError("the program did not end") from error
        if code != 0:
            raise DesktopError(f"the program ended with code {code}")

    def kill(self):
        self.application.send_signal(signal.SIGKILL)
        self.application.wait()

    def wait_until(self, condition, what):
        deadline = time.monotonic() + PATIENCE
        while True:
            result = condition()
            if result:
                return result
            if time.monotonic() > deadline:
                self.picture("failed")
                raise DesktopError(f"waited in vain for {what}")
            if self.application is not None and self.application.poll() not in (None, 0):
                raise DesktopError(f"the program ended while waiting for {what}")
            time.sleep(0.02)

    def windows(self, title):
        """Visible windows with exactly this title."""
        found = []
        visible = self._run_quietly("xdotool", "search", "--onlyvisible", "--name", ".")
        for window in visible.split():
            if self._run_quietly("xdotool", "getwindowname", window).rstrip("\n") == title:
                found.append(window)
        return found

    def active_title(self):
        window = self._run_quietly("xdotool", "getactivewindow").strip()
        return self._run_quietly("xdotool", "getwindowname", window).rstrip("\n") if window else ""

    def wait_for(self, title):
        """Waits until a window with this title has the keyboard."""
        self.wait_until(lambda: self.active_title() == title, f"the window '{title}'")
        return self._run_quietly("xdotool", "getactivewindow").strip()

    def wait_until_gone(self, title):
        self.wait_until(lambda: not self.windows(title), f"the end of '{title}'")

    def active_window(self):
        return self._run_quietly("xdotool", "getactivewindow").strip()

    def activate(self, title):
        """Brings the window with this title up; of several the largest, not the splash."""
        def size(window):
            _, _, width, height = self.geometry(window)
            return width * height
        self.raise_window(max(self.windows(title), key=size))

    def raise_window(self, window):
        self._run_quietly("xdotool", "windowactivate", window)
        self.wait_until(lambda: self.active_window() == window, "the window to come up")

    def key(self, *keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], env=self.environment,
                       check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", "5", text],
                       env=self.environment, check=True)

    def geometry(self, window):
        values = {}
        for line in self._run_quietly("xdotool", "getwindowgeometry", "--shell", window).split():
            name, _, value = line.partition("=")
            values[name] = value
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def frame(self, window):
        """Left, top, right and bottom of a window with the frame that the desktop gives it."""
        lines = self._run_quietly("xwininfo", "-id", window).splitlines()
        values = {name.strip(): value.strip() for name, _, value in
                  (line.partition(":") for line in lines)}
        left, top = (int(values[f"Absolute upper-left {side}"]) for side in "XY")
        right, bottom = left + int(values["Width"]), top + int(values["Height"])
        _, found, extents = self._run_quietly(
            "xprop", "-id", window, "_NET_FRAME_EXTENTS").partition(" = ")
        borders = [int(width) for width in extents.split(",")] if found else [0, 0, 0, 0]
        return left - borders[0], top - borders[2], right + borders[1], bottom + borders[3]

    def click(self, window, x, y):
        """Clicks at a place inside a window."""
        subprocess.run(["xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1"],
                       env=self.environment, check=True)

    def click_thing(self, thing):
        """Clicks into the middle of what the screen reader has found."""
        x, y, width, height = thing.place
        subprocess.run(["xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click",
                        "1"], env=self.environment, check=True)

    def look(self):
        """The screen as it is now."""
        shot = subprocess.run(["import", "-window", "root", "-depth", "8", "ppm:-"],
                              env=self.environment, capture_output=True, check=True)
        return Picture(shot.stdout)

    def look_at(self, window):
        """The pixels of one window, in a form that can be compared."""
        x, y, width, height = self.geometry(window)
        return self.look().crop(x, y, width, height)

    def picture(self, name):
        """Keeps a screenshot."""
        path = self.pictures / f"{name}.png"
        subprocess.run(["import", "-window", "root", str(path)], env=self.environment, check=False)
        return path

    def settled_look_at(self, window):
        """The window's pixels once two looks in a row agree."""
        before = self.look_at(window)
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            time.sleep(0.05)
            now = self.look_at(window)
            if now == before:
                return now
            before = now
        raise DesktopError("the window does not come to rest")
