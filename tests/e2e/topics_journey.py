"""Topics from first to last: the settings file of a first start; a topic with fonts and keys of its
own; one that a stack brings along; typing by an assigned key; deleting a topic that is being
studied. The settings file is compared byte for byte after each step."""

from tests.support.journey import FONTS, TITLE, expect_equal, keys_line, run, session, stack_of

SPANISH_FONTS = ("FRONTFONT=Liberation Sans\r\nFRONTSIZE=12\r\n"
                 "BACKFONT=MS Sans Serif\r\nBACKSIZE=9.5\r\n")
SPANISH_KEYS = "32Eé16Nñ"  # side, modifiers, key, character
SPANISH = stack_of("Spanish", "One word", [("coffee", "café")])
RUSSIAN = stack_of("Russian", "Two words", [("house", "dom"), ("cat", "kot")])


def settings(*topics):
    lines = ["[TOPICS]\r\nDEFAULT=0\r\n"]
    lines += [f"{number}={name}\r\n" for number, (name, _) in enumerate(topics)]
    lines += [f"[{name}]\r\n{body}" for name, body in topics]
    return "".join(lines).encode("cp1252")


GENERAL = ("General", FONTS)
SPANISH_TOPIC = ("Spanish", SPANISH_FONTS + keys_line(SPANISH_KEYS))


def choose_font(journey, combo, name):
    """Walks down the list of fonts, which takes no typing, to the wanted one."""
    journey.desktop.key("Home")
    seen = None
    while combo.name != name:
        expect_equal(seen == combo.name, False, f"the list ended before {name}")
        seen = combo.name
        journey.desktop.key("Down")
        journey.desktop.wait_until(lambda: combo.name != seen, "the next font")


def add_key(journey, window, character, keystroke, name):
    """Assigns a character to a keystroke that is pressed in the box."""
    code = ord(character)
    action = window.all("push button")[0]

    def wait_for_action(text):
        journey.desktop.wait_until(lambda: action.name.rstrip() == text, f"the action '{text}'")

    journey.desktop.click_thing(window.one("list", "Character"))
    # The accented letters come first, in the order of their codes, but for the sign at 215.
    journey.desktop.key("Home", *["Down"] * (code - 192 - (code > 215)))
    wait_for_action(f"ADD - {code:04} =")
    journey.desktop.key("Tab", keystroke)
    wait_for_action(f"ADD - {code:04} = {name}")
    journey.desktop.click_thing(action)
    wait_for_action("Action: None")


def add_spanish(journey):
    desktop = journey.desktop
    journey.menu("alt+t", "a")
    journey.window("Add Topic")
    desktop.type("Spanish")
    desktop.picture("add-topic")
    desktop.key("Return")
    fonts = journey.window(f"{TITLE} (Spanish)")
    front, back = fonts.all("combo box")
    front_size, back_size = fonts.all("text", "Size:")
    desktop.wait_until(lambda: front.focused, "the list of front fonts")
    desktop.key("x")  # typing is refused
    expect_equal(front.name, "MS Sans Serif", "the font after typing")
    choose_font(journey, front, "Liberation Sans")
    for size, points in ((front_size, "12"), (back_size, "9.5")):
        desktop.click_thing(size)
        desktop.key("ctrl+a")
        desktop.type(points)
        journey.wait_for_text(size, points)
    expect_equal(back.name, "MS Sans Serif", "the back font")
    desktop.picture("fonts")
    desktop.click_thing(fonts.one("push button", "OK"))
    keys = journey.window("Key Assignments - Spanish")
    # For both sides, then for the front alone.
    add_key(journey, keys, "é", "ctrl+e", "Ctrl+E")
    desktop.click_thing(keys.one("check box", "Back"))
    add_key(journey, keys, "ñ", "ctrl+alt+n", "Ctrl+Alt+N")
    desktop.picture("keys")
    desktop.click_thing(keys.one("push button", "Done"))
    journey.answer_box("Add Spanish and keys to File?", "alt+y")
    journey.expect_file(journey.settings, settings(GENERAL, SPANISH_TOPIC))


def load_russian(journey, fonts_of_the_moment):
    """A stack of a topic that nobody has yet: it can be added on the way."""
    desktop = journey.desktop
    journey.load(journey.cards / "russian.QBC")
    journey.answer_box("Russian is not a configured Topic.  Add it?", "alt+y", picture="unknown")
    add = journey.window("Add Topic")
    expect_equal(add.one("text").text, "Russian", "the proposed name")
    desktop.key("Return")
    journey.window(f"{TITLE} (Russian)")
    desktop.key("Return")
    keys = journey.window("Key Assignments - Russian")
    desktop.click_thing(keys.one("push button", "Done"))
    journey.answer_box("Add Russian and keys to File?", "alt+y")
    desktop.wait_until_gone("Load Stack of Cards")
    russian = ("Russian", fonts_of_the_moment + keys_line())
    journey.expect_file(journey.settings, settings(GENERAL, SPANISH_TOPIC, russian))
    journey.to_main()
    main = journey.reader.window(TITLE)
    main.one("label", "2 cards, topic Russian")
    return russian


def spell_with_assigned_key(journey, title):
    window = journey.study("p", title)
    field = window.one("text", "Your answer:")
    journey.desktop.key("space")
    journey.desktop.wait_until(lambda: field.focused, "the answer field")
    journey.desktop.key("c", "a", "f", "ctrl+e", "ctrl+alt+n", "ctrl+n")
    # Ctrl+N shares its key with an assignment, so it is swallowed.
    journey.wait_for_text(field, "caféñ")
    journey.desktop.picture("spelled")


def delete_topic(journey, name, row, *kept):
    journey.menu("alt+t", "d")
    window = journey.window("Delete Topic")
    journey.desktop.click_thing(window.one("list").children()[row])
    journey.desktop.click_thing(window.one("push button", "Delete"))
    journey.answer_box(f"Delete {name} and its keys?", "alt+y", picture="delete")
    journey.expect_file(journey.settings, settings(*kept))
    journey.desktop.click_thing(journey.window("Delete Topic").one("push button", "Done"))
    journey.desktop.wait_until_gone("Delete Topic")


def topics(program, pictures):
    with session(program, pictures) as journey:
        desktop = journey.desktop
        (journey.cards / "spanish.QBC").write_bytes(SPANISH)
        (journey.cards / "russian.QBC").write_bytes(RUSSIAN)
        # The program's own folder has no stacks; the one of this first stack is where to look.
        (journey.cards / "general.QBC").write_bytes(stack_of("General", "One", [("a", "b")]))
        journey.start(journey.cards / "general.QBC")
        journey.expect_file(journey.settings, settings(GENERAL))

        add_spanish(journey)
        russian = load_russian(journey, SPANISH_FONTS)
        journey.load(journey.cards / "spanish.QBC")
        desktop.wait_until_gone("Load Stack of Cards")
        title = "Speller - spanish (Spanish)"
        spell_with_assigned_key(journey, title)
        journey.study("s", "Stepper - spanish (Spanish)")

        delete_topic(journey, "Spanish", 0, GENERAL, russian)
        desktop.wait_until_gone(title)
        desktop.wait_until_gone("Stepper - spanish (Spanish)")
        delete_topic(journey, "Russian", 0, GENERAL)
        journey.menu("alt+t", "d")
        journey.answer_box("Nothing to Delete.", "Return")
        journey.quit()
        journey.expect_file(journey.settings, settings(GENERAL))
        expect_equal((journey.cards / "spanish.QBC").read_bytes(), SPANISH, "the Spanish stack")
        expect_equal((journey.cards / "russian.QBC").read_bytes(), RUSSIAN, "the Russian stack")


if __name__ == "__main__":
    run(topics)
