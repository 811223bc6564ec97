"""What can only be measured on the program as a process: how soon it is on the screen, and how much
memory it takes."""

import pathlib
import re
import statistics
import time

from Xlib import X
from Xlib.display import Display

from tests.support.desktop import Desktop

SPLASH_WAIT = 2.0  # seconds that the splash stands before the main window comes
STARTS = 9
STACKS = 100
MAIN = "Quib!Cards 5.50"
LOADING = "Load Stack of Cards"


class Mappings:
    """Tells when a window comes up, by what the X server says in that moment."""

    def __init__(self, desktop):
        self.display = Display(desktop.environment["DISPLAY"])
        self.display.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.sync()

    def next(self):
        while self.display.next_event().type != X.MapNotify:
            pass
        return time.monotonic()


def proportional_memory(process):
    """In MiB: what is the process's own, and its share of what it shares with others."""
    text = pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text()
    return int(re.search(r"^Pss:\s+(\d+) kB", text, re.M).group(1)) / 1024


def start(desktop, *arguments):
    """Starts the program; the seconds to the splash, and to the main window less the splash's wait."""
    mappings = Mappings(desktop)
    began = time.monotonic()
    desktop.start(*arguments)
    splash = mappings.next() - began
    main = mappings.next() - began - SPLASH_WAIT
    desktop.wait_until(lambda: len(desktop.windows(MAIN)) == 2, "the main window over the splash")
    desktop.activate(MAIN)
    return splash, main


def end(desktop):
    desktop.key("ctrl+q")
    desktop.wait_for_end()


def load(desktop, name):
    desktop.key("ctrl+o")
    desktop.wait_for(LOADING)
    desktop.type(name)
    desktop.key("Return")
    desktop.wait_for(MAIN)


def measure(program, sample, pictures):
    """The medians: splash and main window in milliseconds, and the memory with 1 and with many
    stacks in MiB."""
    with Desktop(program, pictures) as desktop:
        folder = desktop.home / "Documents"
        _, cards = sample.read_bytes().split(b"\r\n", 1)
        for number in range(1, STACKS + 1):
            (folder / f"s{number}.QBC").write_bytes(b"General\r\n" + cards)
        times = []
        for _ in range(STARTS):
            times.append(start(desktop, folder / "s1.QBC"))
            one_stack = proportional_memory(desktop.application)
            end(desktop)
        start(desktop, folder / "s1.QBC")
        for number in range(2, STACKS + 1):
            load(desktop, f"s{number}.QBC")
        many_stacks = proportional_memory(desktop.application)
        end(desktop)
    splash, main = (1000 * statistics.median(column) for column in zip(*times))
    return {"splash": splash, "main": main, "one_stack": one_stack, "many_stacks": many_stacks}
