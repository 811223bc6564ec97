"""Small and enlarged screens: every window that the main window opens stands on the screen with the
title bar and the borders that a window manager gives it, and the splash stays behind the main window."""

from tests.support.journey import TITLE, expect, run, session, settings_of, stack_of

UNSAVED = "Changes will not be saved to disk.\nDo you wish to save changes?"
CARDS = [(f"front {number}", f"back {number}") for number in range(1, 5)]

# The keys that open a window from the main window, what its title begins with, and what closes it.
WINDOWS = [
    (("alt+f", "l"), "Load Stack of Cards", "Escape"),
    (("alt+f", "e"), "Edit Cards", "alt+F4"),
    (("alt+f", "p"), TITLE + " - ", "Escape"),
    (("alt+t", "a"), "Add Topic", "Escape"),
    (("alt+t", "c"), "Key Assignments", "alt+F4"),
    (("alt+t", "d"), "Delete Topic", "Escape"),
    (("alt+s", "s"), "Set Timer", "Escape"),
]


def visible_windows(desktop):
    return desktop._run_quietly("xdotool", "search", "--onlyvisible", "--name", ".").split()


def expect_on_screen(desktop, window, what):
    width, height = map(int, desktop._run_quietly("xdotool", "getdisplaygeometry").split())
    left, top, right, bottom = desktop.frame(window)
    expect(left >= 0 and top >= 0 and right <= width and bottom <= height,
           f"{what} stands at {left},{top} to {right},{bottom} on a screen of {width} x {height}")


def look_at_all(program, pictures, size, scale):
    with session(program, pictures, f"{size}-at-{scale}", size=size, scale=scale) as journey:
        desktop = journey.desktop
        journey.write_settings(settings_of("General", "Spanish"))
        path = journey.cards / "words.QBC"
        path.write_bytes(stack_of("Spanish", "Words", CARDS))
        journey.start(path)
        # At 200 % the splash is as wide as a main window elsewhere.
        desktop.wait_until(lambda: len(desktop.windows(TITLE)) == 2, "the main window")
        splash, journey.main = sorted(desktop.windows(TITLE),
                                      key=lambda window: desktop.geometry(window)[2])
        desktop.activate(TITLE)
        desktop.settled_look_at(journey.main)
        desktop.picture("main")
        expect_on_screen(desktop, journey.main, "the main window")
        left, top, right, bottom = desktop.frame(journey.main)
        inner = desktop.frame(splash)
        expect(left <= inner[0] and top <= inner[1] and right >= inner[2]
               and bottom >= inner[3], "the splash looks out behind the main window")
        for keys, title, closing in WINDOWS:
            journey.menu(*keys)
            desktop.wait_until(lambda: desktop.active_title().startswith(title), title)
            window = desktop.active_window()
            expect_on_screen(desktop, window, title)
            desktop.settled_look_at(window)
            desktop.picture(title.replace(" ", "-").strip("-").lower())
            desktop.key(closing)
            if title == "Edit Cards":
                journey.answer_box(UNSAVED, "alt+n")
            desktop.wait_until(lambda: window not in visible_windows(desktop), f"{title} to go")
        journey.quit()


def small(program, pictures):
    look_at_all(program, pictures, "1024x600", 1)


def enlarged(program, pictures):
    look_at_all(program, pictures, "1280x800", 2)


def enlarged_by_half(program, pictures):
    look_at_all(program, pictures, "1366x768", 1.5)


if __name__ == "__main__":
    run(small, enlarged, enlarged_by_half)
