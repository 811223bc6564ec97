"""A Wayland desktop in a window of a virtual one, which passes keys on to it. Its windows are none of
the outer desktop's: a screen reader finds them."""

import subprocess

from tests.support.desktop import Desktop, DesktopError


class WaylandDesktop(Desktop):
    """Weston, and the program, whose complaints and requests to the compositor are kept."""

    SOCKET = "quib-wayland"

    def _start_display(self, size):
        super()._start_display(size)
        self.said = self.home / "said"
        self.home.chmod(0o700)
        width, height = size.split("x")
        # A compositor without a screen of its own would have no keyboard either.
        self.processes.append(subprocess.Popen(
            ["weston", "--backend=x11-backend.so", "--no-config", f"--width={width}",
             f"--height={height}", "--fullscreen", "--socket=" + self.SOCKET],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        self.wait_until((self.home / self.SOCKET).exists, "the compositor")
        # Plugins that are gone at the end leave memory behind that nobody can be blamed for by name;
        # the other journeys watch over ours.
        self.environment.update(QT_QPA_PLATFORM="wayland", WAYLAND_DISPLAY=self.SOCKET,
                                WAYLAND_DEBUG="1", ASAN_OPTIONS="detect_leaks=0")

    def start(self, *arguments, **how):
        super().start(*arguments, before=("sh", "-c", f"exec \"$@\" 2>'{self.said}'", "sh"), **how)

    def wait_for_end(self):
        try:
            super().wait_for_end()
        except DesktopError as error:
            raise DesktopError("\n".join([str(error), *self.complaints()])) from error

    def requests(self):
        """What the program has asked of the compositor."""
        return [line for line in self._lines() if line.startswith("[")]

    def complaints(self):
        return [line for line in self._lines() if not line.startswith("[")]

    def _lines(self):
        return self.said.read_text(encoding="utf-8", errors="replace").splitlines()
