"""Assigned keys on other keyboards: the same physical keyboard as a French, a German and a Dvorak one.
Letters go by what is on the key, punctuation by its sign, the digit row by its place."""

import subprocess

from tests.support.desktop import DesktopError
from tests.support.journey import expect_equal, run, session, settings_of, stack_of

# Ctrl+M, Ctrl+, Ctrl+. Ctrl+- Ctrl+/ Ctrl+1 Ctrl+A Ctrl+; for the characters that follow them.
KEYS = "".join(f"32{key}{character}" for key, character in
               [("M", "m"), ("\xbc", "c"), ("\xbe", "p"), ("\xbd", "h"), ("\xbf", "s"), ("1", "1"),
                ("A", "a"), ("\xba", "k")])
TITLE = "Speller - one (Keys)"

# The places of keys, as the kernel's code plus 8, and what Ctrl with each of them types.
LAYOUTS = {
    "us": {10: "1", 38: "a", 58: "m", 59: "c", 60: "p", 20: "h", 61: "s", 47: "k"},
    "fr": {10: "1", 24: "a", 47: "m", 58: "c", 59: "k", 60: "p", 20: "h", 61: "s"},
    "de": {10: "1", 38: "a", 58: "m", 59: "c", 60: "p", 61: "h", 20: "s", 47: "k"},
    "us(dvorak)": {10: "1", 38: "a", 58: "m", 25: "c", 26: "p", 48: "h", 34: "s", 52: "k", 59: ""},
}


def use_layout(desktop, layout):
    name, _, variant = layout.rstrip(")").partition("(")
    subprocess.run(["setxkbmap", name, *(["-variant", variant] if variant else [])],
                   env=desktop.environment, check=True)
    desktop.wait_until(
        lambda: name in desktop._run_quietly("setxkbmap", "-query"), f"the layout {layout}")


def keyboards(program, pictures):
    with session(program, pictures) as journey:
        desktop = journey.desktop
        journey.write_settings(settings_of("General", ("Keys", KEYS)))
        path = journey.cards / "one.QBC"
        path.write_bytes(stack_of("Keys", "One", [("question", "answer")]))
        for layout, places in LAYOUTS.items():
            use_layout(desktop, layout)
            journey.start(path)
            window = journey.study("p", TITLE)
            field = window.one("text", "Your answer:")
            desktop.key("space")
            desktop.wait_until(lambda: field.focused, "the answer field")
            expected = ""
            for place, typed in places.items():
                # By its place, as a finger does.
                subprocess.run(["xdotool", "keydown", "Control_L", "key", str(place), "keyup",
                                "Control_L"], env=desktop.environment, check=True)
                expected += typed
                if typed:
                    try:
                        journey.wait_for_text(field, expected)
                    except DesktopError:
                        expect_equal(field.text, expected, f"{layout}: Ctrl and the key {place}")
            expect_equal(field.text, expected, f"{layout}: the answer field")
            desktop.picture(layout.replace("(", "-").rstrip(")"))
            desktop.click_thing(window.one("push button", "Quit"))
            desktop.wait_until_gone(TITLE)
            journey.quit()


if __name__ == "__main__":
    run(keyboards)
