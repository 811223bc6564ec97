"""Every text of a vocabulary file is on a card or among the listed losses.

Documents are made at random from fixed seeds: elements repeated, nested, missing and in odd order,
marks in texts, comments, CDATA, references, many encodings. Another reader of XML (Python's) says
what they hold, docs/formats.md what becomes of it, and quibconv has to agree in every count.
"""

import collections
import csv
import io
import json
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

PROGRAM = ""
DOCUMENTS = 150
SPACE = " \t\r\n"

# Python's name of an encoding, what a file calls it, and letters that it has.
ENCODINGS = [
    ("utf-8", "UTF-8", "éжあ中😀"), ("cp1251", "windows-1251", "жЩё"),
    ("cp1252", "windows-1252", "é€œ"), ("latin-1", "ISO-8859-1", "éÿÑ"),
    ("iso8859-2", "iso-8859-2", "łőž"), ("iso8859-15", "ISO-8859-15", "€Œé"),
    ("koi8-r", "KOI8-R", "жЩ"), ("shift_jis", "Shift_JIS", "あ漢ソ"), ("euc_jp", "EUC-JP", "あ漢"),
    ("gb18030", "GB18030", "中é😀"), ("big5", "Big5", "中功"),
    ("utf-16", "UTF-16", "éж😀"), ("utf-16-le", "UTF-16", "éあ"), ("utf-16-be", "UTF-16", "жあ"),
    ("utf-8-sig", "UTF-8", "éあ"), ("utf-8", None, "éж"), ("utf-32", "UTF-32", "é😀"),
]


def ink(text):
    return bool(text and text.strip(SPACE))


def crlf(text):
    return text.replace("\n", "\r\n")


def holds_inside(element):
    return any(ink(text) for text in element.itertext()) or any(
        below.attrib for below in element.iter() if below is not element)


def holds(element):
    return bool(element.attrib) or holds_inside(element)


class Expected:
    """What docs/formats.md promises of a document."""

    def __init__(self, root):
        self.losses = collections.Counter()
        self.cards = []
        self.languages = False
        self.program = False
        self.lessons = []
        self.lesson_entries = 0
        self.aside = False
        self.head = {"title": "", "category": ""}
        identifiers = root.findall("./identifiers/identifier")
        self.ids = [identifier.get("id", "") for identifier in identifiers]
        self.names = {}
        for identifier in identifiers:
            shown = next(("".join(name.itertext()) for name in identifier.findall("name")
                          if "".join(name.itertext())), "")
            self.names.setdefault(identifier.get("id", ""), shown or identifier.get("id", ""))
        number = 0
        while len(self.ids) < 2:
            if str(number) not in self.ids:
                self.ids.append(str(number))
            number += 1
        self.parts(root, {"version"}, self.section)
        # A single lesson that is called like the file and has all its cards is none to speak of.
        self.lessons_told = bool(self.lessons) and not (
            len(self.lessons) == 1 and self.lessons[0] == (self.head["title"] or "Cards")
            and self.lesson_entries == len(self.cards) and not self.aside)

    def lose(self, what):
        self.losses[what] += 1

    def attributes(self, element, known):
        for name in element.attrib:
            if name not in known:
                self.lose(f"the attribute “{name}” of <{element.tag}>")

    def parts(self, element, known, use):
        self.attributes(element, known)
        for child in element:
            use(child)
        if ink(element.text) or any(ink(child.tail) for child in element):
            self.lose(f"the text beside the elements of <{element.tag}>")

    def element(self, element, name=None):
        if holds(element):
            self.lose(name or f"<{element.tag}>")

    def text(self, element):
        self.attributes(element, ())
        for mark in element.iter():
            if mark is not element:
                self.losses[f"of the mark <{mark.tag}> in <{element.tag}> only the text stays; "
                            "the rest is left out"] += 1
        return crlf("".join(element.itertext()))

    def take(self, element, place, key, trim=False):
        text = self.text(element)
        if trim:
            text = text.strip(" ")
        if not ink(place[key]):
            place[key] = text or place[key]
        elif ink(text):
            self.lose(f"a further <{element.tag}>")

    def section(self, section):
        inside = {"information": (self.information, None), "identifiers": (self.identifier, "identifier"),
                  "entries": (self.entry, "entry"), "lessons": (self.lesson, "container")}
        if section.tag not in inside:
            self.element(section)
            return
        use, tag = inside[section.tag]
        self.parts(section, (), lambda part: use(part) if tag in (None, part.tag)
                   else self.element(part))

    def information(self, item):
        if item.tag in self.head:
            self.take(item, self.head, item.tag, True)
        elif item.tag in ("generator", "date"):
            self.program = ink(self.text(item)) or self.program
        else:
            self.element(item, f"the {item.tag}")

    def identifier(self, identifier):
        names = 0

        def use(part):
            nonlocal names
            if part.tag == "name" and names:
                self.element(part, "a further <name>")
            elif part.tag in ("name", "locale"):
                text = self.text(part)
                names += part.tag == "name" and ink(text)
                self.languages = self.languages or (ink(text) and text not in ("Front", "Back"))
            else:
                self.element(part)
        self.parts(identifier, {"id"}, use)

    def entry(self, entry):
        card = [dict.fromkeys(("text", "sound", "image"), "") for _ in range(2)]
        self.cards.append(card)

        def use(part):
            if part.tag != "translation":
                self.element(part)
                return
            name = part.get("id", "")
            if name in self.ids[:2]:
                side = card[self.ids.index(name)]
                self.parts(part, {"id"}, lambda piece: self.take(
                    piece, side, piece.tag, piece.tag != "text") if piece.tag in side
                    else self.element(piece))
                return
            self.attributes(part, {"id"})
            if holds_inside(part):
                shown = self.names.get(name, name)[:40].replace("\n", "\u23ce")
                self.lose(f"the language “{shown}”")
        self.parts(entry, {"id"}, use)

    def lesson(self, container):
        name = {"name": ""}

        def use(part):
            if part.tag == "name":
                self.take(part, name, "name")
            elif part.tag == "inpractice":
                self.aside = self.text(part) == "false" or self.aside
            elif part.tag == "entry":
                self.lesson_entries += 1
                self.attributes(part, {"id"})
                if holds_inside(part):
                    self.lose("<entry> of a lesson")
            else:
                self.element(part)
        self.parts(container, (), use)
        self.lessons.append(name["name"])


class Maker:
    """Makes documents that are in order, but odd."""

    def __init__(self, seed, letters):
        self.random = random.Random(seed)
        self.letters = letters
        self.number = 0

    def chance(self, share):
        return self.random.random() < share

    def word(self):
        self.number += 1
        return f"t{self.random.choice(self.letters)}{self.number}"

    def piece(self):
        word = self.word()
        return self.random.choice([
            word, f" {word} ", f"{word}\n", f"<![CDATA[{word}<&>]]>", f"<!-- no --{'>'}{word}",
            f"{word}<!-- in\nthe middle -->{word}", f"<?odd data?>{word}", f"&lt;{word}&amp;&#233;",
            f"&#x{ord(self.random.choice('ż漢😀')):x};{word}", f"{word}]]&gt;&quot;&apos;"])

    def space(self):
        return self.random.choice(["", "\n", "  ", "\n\t"])

    def attributes(self):
        if not self.chance(0.06):
            return ""
        quote = self.random.choice("\"'")
        return f" {self.random.choice(['lang', 'x.y', 'note'])}{self.space()} = {quote}a&gt;{self.word()}{quote}"

    def wrap(self, tag, inside, known=""):
        if not inside and self.chance(0.5):
            return f"<{tag}{known}{self.attributes()}{self.random.choice(['', ' '])}/>"
        return f"<{tag}{known}{self.attributes()}>{inside}</{tag}{self.random.choice(['', ' '])}>"

    def text(self, tag):
        inside = "".join(self.piece() for _ in range(self.random.choice([0, 1, 1, 1, 2])))
        while self.chance(0.2):
            inside = self.wrap(self.random.choice("biu"), inside) + self.random.choice(["", self.piece()])
        return self.wrap(tag, inside)

    def other(self):
        tag = self.random.choice(["comment", "grade", "odd.one", "pair"])
        inside = self.piece() if self.chance(0.6) else ""
        for _ in range(self.random.choice([0, 0, 1, 30])):
            inside = self.wrap("deep", inside)
        return self.wrap(tag, inside)

    def mixed(self, makers, most):
        parts = [self.random.choice(makers)() for _ in range(self.random.randint(0, most))]
        if self.chance(0.08):
            parts.append(self.piece())
        self.random.shuffle(parts)
        return "".join(part + self.space() for part in parts)

    def id(self):
        return self.random.choice([' id="0"', ' id="1"', " id='0'", ' id="1"', ' id="2"', ""])

    def translation(self):
        texts = [lambda: self.text("text")] * 3
        return self.wrap("translation", self.mixed(
            [*texts, lambda: self.text("sound"), lambda: self.text("image"), self.other], 4), self.id())

    def entry(self):
        return self.wrap("entry", self.mixed([self.translation] * 6 + [self.other], 4),
                         self.random.choice([' id="7"', ""]))

    def identifier(self):
        return self.wrap("identifier", self.mixed(
            [lambda: self.text("name"), lambda: self.text("locale"), self.other], 3), self.id())

    def lesson(self, depth=0):
        makers = [lambda: self.text("name"), lambda: "<inpractice>true</inpractice>",
                  lambda: '<entry id="7"/>', self.other]
        if depth < 3:
            makers.append(lambda: self.lesson(depth + 1))
        return self.wrap("container", self.mixed(makers, 4))

    def document(self, declared):
        sections = [self.wrap("entries", self.entry() + self.mixed([self.entry] * 5 + [self.other], 6))]
        if self.chance(0.3):
            sections.append(self.wrap("entries", self.mixed([self.entry], 3)))
        if self.chance(0.8):
            sections.append(self.wrap("identifiers", self.mixed([self.identifier] * 4 + [self.other], 5)))
        for _ in range(self.random.choice([0, 1, 1, 2])):
            sections.append(self.wrap("information", self.mixed(
                [lambda: self.text("title"), lambda: self.text("category"), self.other,
                 lambda: self.text("generator"), lambda: self.text("author")], 4)))
        for _ in range(self.random.choice([0, 0, 1, 2])):
            sections.append(self.wrap("lessons", self.mixed([self.lesson] * 4 + [self.other], 3)))
        if self.chance(0.3):
            sections.append(self.wrap("wordtypes", self.mixed([self.lesson], 2)))
        if self.chance(0.1):
            sections.append(self.piece())
        self.random.shuffle(sections)
        head = f'<?xml version="1.0" encoding="{declared}"?>\n' if declared else ""
        subset = ' [<!-- "> --><!ENTITY a "]>">]' if self.chance(0.2) else ""
        kind = f'<!DOCTYPE kvtml PUBLIC "a" "b>c"{subset}>\n' if subset or self.chance(0.5) else ""
        body = "".join(self.space() + section for section in sections)
        return f'{head}{kind}<!-- a > b --><kvtml version="2.0">{body}</kvtml>\n<!-- end -->', bool(subset)


LOSS = re.compile(r"(.*(?:has no place on a card; left out|; the rest is left out))(?: (\d+) times)?")


class Accounts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_it(self, *arguments):
        return subprocess.run([PROGRAM, *arguments], capture_output=True, timeout=60,
                              cwd=self.folder, check=False)

    def convert(self, content, *options):
        (self.folder / "in.kvtml").write_bytes(content)
        result = self.run_it("convert", "--all", "--force", "--to-header", *options, "in.kvtml",
                             "out.tsv")
        messages = [line.split(": ", 1)[1]
                    for line in result.stderr.decode("utf-8").splitlines() if ": " in line]
        return result.returncode, [message.removeprefix("note: ") for message in messages]

    def cards(self):
        rows = list(csv.reader(io.StringIO((self.folder / "out.tsv").read_bytes().decode("utf-8"),
                                           newline=""), delimiter="\t"))
        cards = []
        for row in rows[1:]:
            row += [""] * (6 - len(row))
            cards.append([{"text": row[0], "sound": row[2], "image": row[3]},
                          {"text": row[1], "sound": row[4], "image": row[5]}])
        return cards

    def agree(self, document, declares, content, *options):
        expected = Expected(ElementTree.fromstring(document))
        status, messages = self.convert(content, *options)
        self.assertEqual(status, 0, messages)
        # A table's name of a sound or picture ends where its line does; a text keeps all of it.
        self.assertEqual(self.cards(), [[{key: value if key == "text" else value.strip(" ")
                                          for key, value in side.items()} for side in card]
                                        for card in expected.cards])
        losses = collections.Counter()
        for message in messages:
            found = LOSS.fullmatch(message)
            if found and not message.startswith("column "):
                what = found[1].removesuffix(" has no place on a card; left out")
                losses[what] += int(found[2] or 1)
        self.assertEqual(losses, expected.losses)

        def told(words):
            return any(words in message for message in messages)
        self.assertEqual(told("what the languages are called stays behind"), expected.languages)
        self.assertEqual(told("which program made the file"), expected.program)
        self.assertEqual(told("the lessons become one list"), expected.lessons_told)
        self.assertEqual(told("what the document type declares is not read"), declares)
        report = json.loads(self.run_it("info", "--json", "in.kvtml", *options).stdout)["files"][0]
        self.assertEqual(report["description"], expected.head["title"])
        self.assertEqual(report["topic"], expected.head["category"])

    def test_every_text_is_on_a_card_or_listed(self):
        for seed in range(DOCUMENTS):
            codec, declared, letters = ENCODINGS[seed % len(ENCODINGS)]
            document, declares = Maker(seed, letters).document(declared)
            with self.subTest(seed=seed, encoding=codec):
                self.agree(document, declares, document.encode(codec))

    def test_the_encoding_that_is_asked_for_counts_over_the_declared_one(self):
        for seed in range(20):
            document, declares = Maker(seed, "жЩё").document("ISO-8859-1")
            with self.subTest(seed=seed):
                self.agree(document, declares, document.encode("cp1251"), "--encoding",
                           "windows-1251")

    def test_a_document_that_is_cut_is_refused(self):
        for seed in range(40):
            document, _ = Maker(seed, "éж").document("UTF-8")
            end = document.index("</kvtml") + len("</kvtml")
            cut = document[:random.Random(seed).randint(0, end)]
            with self.subTest(seed=seed):
                self.assertRaises(ElementTree.ParseError, ElementTree.fromstring, cut)
                status, messages = self.convert(cut.encode("utf-8"))
                self.assertEqual(status, 2, messages)

    def test_an_encoding_that_nobody_knows_is_refused(self):
        for name in ("klingon", "ascii//IGNORE"):
            status, messages = self.convert(
                f'<?xml version="1.0" encoding="{name}"?><kvtml version="2.0"/>'.encode())
            self.assertEqual(status, 2)
            self.assertEqual(messages, [f"error: no encoding is called “{name}”"])

    def test_entities_are_neither_expanded_nor_read(self):
        (self.folder / "secret.txt").write_text("secret words")
        laughs = "".join(f'<!ENTITY a{n} "{f"&a{n - 1};" * 10}">' for n in range(1, 12))
        document = (f'<!DOCTYPE kvtml [<!ENTITY a0 "ha">{laughs}'
                    f'<!ENTITY file SYSTEM "{self.folder / "secret.txt"}">]>'
                    '<kvtml version="2.0"><entries><entry><translation id="0"><text>&a11;</text>'
                    '</translation><translation id="1"><text>&file;</text></translation></entry>'
                    "</entries></kvtml>")
        status, messages = self.convert(document.encode())
        self.assertEqual(status, 0)
        self.assertEqual([side["text"] for side in self.cards()[0]], ["&a11;", "&file;"])
        self.assertTrue(any("stays as it is, and 1 more like it" in message
                            for message in messages), messages)


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main()
