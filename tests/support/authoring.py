"""Writing and changing stacks at the desktop."""

from tests.support.journey import settings_of, stack_of

OVERWRITE = "File Already Exists. Overwrite?\n(Choose OK if you are editing)"
CHANGED = ("The file was changed elsewhere since you loaded or saved this stack.\n"
           "Overwrite those changes?\n(Choose Cancel to keep the file)")
ERROR_TITLE = "Quib!Cards 5.50 Error"
SETTINGS = settings_of("General", ("Spanish", "32Eé36Nñ"), "French")
WORDS = stack_of("Spanish", "Five words and a flag",
                 [("coffee", "café"), ("the cat^el gato", "gato"), ("tomorrow", "mañana"),
                  ("year", "año"), (("France", "france.wav", "france.bmp"), "Francia")])


def edit_title(name, topic):
    """The editor's title holds the name in its full width."""
    return f"Edit Cards: {name.ljust(256)}  ({topic})"


def saved_again(stack):
    """A stack file as it is after loading and saving it unchanged: a side without media takes the
    two blanks at its end for text, and gets two more."""
    lines = stack.split(b"\r\n")
    for place in range(2, len(lines) - 1):
        if lines[place].endswith(b"  "):
            lines[place] += b"  "
    return b"\r\n".join(lines)


def card_lines(*cards):
    """The lines of cards that hold nothing but text."""
    return "".join(f"{side}  \r\n" for card in cards for side in card).encode("cp1252")


class CardWindow:
    """The fields of a window that takes card text."""

    def __init__(self, journey, title):
        self.journey, self.desktop = journey, journey.desktop
        self.window = journey.window(title)

    def field(self, name):
        return self.window.one("text", name)

    def button(self, name):
        self.desktop.click_thing(self.window.one("push button", name))

    def enter(self, name, *pieces):
        """Fills a field: texts are typed, keystrokes stand in lists."""
        field = self.field(name)
        self.desktop.click_thing(field)
        self.desktop.wait_until(lambda: field.focused, name)
        self.desktop.key("ctrl+Home", "ctrl+shift+End", "Delete")
        for piece in pieces:
            if isinstance(piece, str):
                self.desktop.type(piece)
            else:
                self.desktop.key(*piece)

    def enter_card(self, front, back):
        """Both texts; a side is a text or a tuple of what `enter` takes."""
        for name, side in (("Front text", front), ("Back text", back)):
            self.enter(name, *([side] if isinstance(side, str) else side))

    def row(self, text):
        """Chooses the card in whose row this text stands."""
        row = next(label for label in self.window.all("label") if label.name.rstrip(" ") == text)
        self.desktop.click_thing(row)


def start_editing(journey, name, topic):
    journey.menu("alt+f", "e")
    return CardWindow(journey, edit_title(name, topic))


def add_cards(editor, name, topic, *cards):
    """Adds cards through the editor's own window for that."""
    editor.button("Add Cards")
    adding = CardWindow(editor.journey, f"Add Cards to {name.ljust(256)} ({topic})")
    for card in cards:
        adding.enter_card(*card)
        adding.button("Continue")
        editor.journey.wait_for_text(adding.field("Front text"), "")
    adding.button("Done")


def choose_file(journey, name):
    journey.desktop.wait_for("Save Stack of Cards")
    journey.desktop.key("ctrl+a")
    journey.desktop.type(name)
    journey.desktop.key("Return")
