"""The program dies at any moment of a save: afterwards the file is the old one or the new one,
whole, and the next save goes through."""

import os
import subprocess
import time

from tests.support.authoring import OVERWRITE, edit_title, saved_again, start_editing
from tests.support.journey import TITLE, expect, run, session, settings_of, stack_of

CARDS = [(f"front {number} " + "f" * 150, f"back {number} " + "b" * 150)
         for number in range(1, 301)]
STACK = stack_of("General", "A full stack", CARDS)
SAVES = 14
STEP = 0.006  # seconds by which each kill comes later than the one before


def change(journey, text):
    """Changes the first card and goes as far as the last question before the file is written;
    returns what the file is going to hold."""
    old = journey.stack.read_bytes()
    editor = start_editing(journey, "full", "General")
    journey.desktop.key("Down")  # the first card
    journey.desktop.wait_until(lambda: editor.field("Front text").text != "", "the first card")
    editor.enter("Front text", text)
    editor.button("Save/End")
    journey.desktop.wait_for("Save Stack of Cards")
    journey.desktop.key("Return")
    journey.desktop.wait_until(lambda: journey.message() == OVERWRITE, "the last question")
    journey.desktop.wait_for(TITLE)
    lines = saved_again(old).split(b"\r\n")
    lines[2] = text.encode() + b"  "
    return old, b"\r\n".join(lines)


def temporary_files(folder):
    return [name for name in os.listdir(folder) if name.startswith(".quibcards-save-")]


def wait_for_temporary(folder, before):
    """Watches without a pause: what it waits for may be there for a millisecond."""
    deadline = time.monotonic() + 5
    while time.monotonic() < deadline and len(temporary_files(folder)) <= before:
        pass


def confirm_and_kill(journey, number):
    before = len(temporary_files(journey.cards))
    press = subprocess.Popen(["xdotool", "key", "Return"], env=journey.desktop.environment)
    if number % 2:
        wait_for_temporary(journey.cards, before)
    time.sleep(number // 2 * STEP)  # the moment itself is what differs from save to save
    journey.desktop.kill()
    press.wait()


def killed_while_saving(program, pictures):
    with session(program, pictures) as journey:
        journey.write_settings(settings_of("General"))
        journey.stack = journey.cards / "full.QBC"
        journey.stack.write_bytes(STACK)
        seen = {"old": 0, "new": 0, "temporary": 0}
        for number in range(SAVES):
            journey.start(journey.stack)
            old, new = change(journey, f"take {number}")
            confirm_and_kill(journey, number)
            now = journey.stack.read_bytes()
            expect(now in (old, new), f"after kill {number} the file is neither old nor new: "
                                      f"{len(old)}, {len(new)} and {len(now)} bytes")
            seen["old" if now == old else "new"] += 1
            seen["temporary"] = len(temporary_files(journey.cards))
        print(f"after the kills: {seen}")

        journey.start(journey.stack)
        _, new = change(journey, "the last take")
        journey.desktop.key("Return")
        journey.expect_file(journey.stack, new)
        journey.desktop.wait_until_gone(edit_title("full", "General"))
        journey.quit()


if __name__ == "__main__":
    run(killed_while_saving)
