"""What the installed program tells the desktop about itself: each file passes its own validator, and
all of them agree."""

import configparser
import pathlib
import re
import struct
import sys
import unittest
import xml.etree.ElementTree as ElementTree

from tests.support.installed import Installation, output

BUILD, VERSION, SOURCE = sys.argv[1:4]
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
STACK = "application/x-quibcards-stack"
IMPORT = "application/x-quibcards-import"
ICONS = (("apps", "quibcards"), ("mimetypes", "application-x-quibcards-stack"),
         ("mimetypes", "application-x-quibcards-import"))
MIME = "{http://www.freedesktop.org/standards/shared-mime-info}"


class DesktopData(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.installed = cls.enterClassContext(Installation(BUILD))
        share = cls.share = cls.installed.share
        cls.registering = cls.installed.register()
        cls.entry_file = share / "applications" / "quibcards.desktop"
        cls.metainfo_file = share / "metainfo" / "local.quibcards.quibcards.metainfo.xml"
        cls.manual = share / "man" / "man1" / "quibcards.1"
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(cls.entry_file, encoding="utf-8")
        cls.entry = entry["Desktop Entry"]
        cls.metainfo = ElementTree.parse(cls.metainfo_file).getroot()

    def gio(self, *words):
        return output("gio", *words, env=self.installed.environment(
            XDG_DATA_HOME=str(self.installed.folder / "data"),
            XDG_CONFIG_HOME=str(self.installed.folder / "config"), LC_ALL="C.UTF-8"))

    def about(self, name, attribute):
        path = self.installed.folder / name
        path.write_bytes(b"General\r\n" + b" " * 64 + b"\r\na\r\nb\r\n")
        found = re.search(rf"standard::{attribute}: (.*)",
                          self.gio("info", "-a", "standard::" + attribute, path))
        return found.group(1)

    def test_the_menu_entry_is_valid(self):
        self.assertEqual(output("desktop-file-validate", self.entry_file), "")

    def test_the_description_is_valid(self):
        said = output("appstreamcli", "validate", "--no-net", "--pedantic", self.metainfo_file)
        # The project has no domain, so its name can't begin with one; that is said, not blamed.
        marks = re.findall(r"^([EWIP]): \S+:\d+: (\S+)", said, re.MULTILINE)
        self.assertEqual(marks, [("I", "cid-maybe-not-rdns")])

    def test_the_description_fits_the_menu_entry(self):
        said = output("appstreamcli", "validate-tree", "--no-net", self.installed.prefix)
        self.assertIn(self.metainfo_file.name, said)
        self.assertNotRegex(said, r"(?m)^\s*[EW]: ")

    def test_the_manual_is_valid(self):
        self.assertEqual(output("mandoc", "-T", "lint", "-W", "style", self.manual), "")

    def test_the_file_types_are_valid(self):
        self.assertEqual(self.registering, "")

    def test_letter_case_of_a_file_name_does_not_matter(self):
        for name in ("WORDS.QBC", "words.qbc", "Words.Qbc", "drei Wörter.QBC", "a.b.QBC"):
            self.assertEqual(self.about(name, "content-type"), STACK, name)
        for name in ("OLD.QBS", "old.qbs", "Alte Wörter.Qbs"):
            self.assertEqual(self.about(name, "content-type"), IMPORT, name)
        for name in ("words.qb", "words.qbcx", "qbc"):
            self.assertNotIn(self.about(name, "content-type"), (STACK, IMPORT), name)

    def test_file_types_have_their_icons(self):
        self.assertIn("application-x-quibcards-stack", self.about("a.QBC", "icon"))
        self.assertIn("application-x-quibcards-import", self.about("a.QBS", "icon"))

    def test_both_file_types_open_with_the_program(self):
        for mime_type in (STACK, IMPORT):
            self.assertIn("Registered applications:\n\tquibcards.desktop\n",
                          self.gio("mime", mime_type))

    def test_all_name_the_same_file_types(self):
        types = ElementTree.parse(self.share / "mime" / "packages" / "quibcards.xml").getroot()
        defined = [item.get("type") for item in types.iter(MIME + "mime-type")]
        self.assertEqual(sorted(defined), sorted([STACK, IMPORT]))
        self.assertEqual(sorted(filter(None, self.entry["MimeType"].split(";"))), sorted(defined))
        self.assertEqual(sorted(item.text for item in self.metainfo.iter("mediatype")),
                         sorted(defined))

    def test_what_the_entry_names_is_installed(self):
        self.assertEqual(self.entry["Exec"], "quibcards %f")
        self.assertTrue(self.installed.program.is_file())
        self.assertIn(("apps", self.entry["Icon"]), ICONS)
        self.assertEqual(self.metainfo.find("launchable").text, self.entry_file.name)

    def test_icons_have_their_sizes(self):
        for kind, name in ICONS:
            for size in SIZES:
                path = self.share / "icons/hicolor" / f"{size}x{size}" / kind / f"{name}.png"
                head = path.read_bytes()[:24]
                self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n", path)
                self.assertEqual(struct.unpack(">II", head[16:]), (size, size), path)

    def test_icons_show_something_on_nothing(self):
        for kind, name in ICONS:
            for size in SIZES:
                path = self.share / "icons/hicolor" / f"{size}x{size}" / kind / f"{name}.png"
                corner, middle, colours = output(
                    "convert", path, "-format", "%[fx:p{0,0}.a] %[fx:p{w/2,h/2}.a] %k",
                    "info:").split()
                self.assertEqual((float(corner), float(middle)), (0, 1), path)
                self.assertGreater(int(colours), 8, path)

    def test_drawings_are_installed(self):
        for kind, name in ICONS:
            path = self.share / "icons/hicolor/scalable" / kind / f"{name}.svg"
            self.assertTrue(ElementTree.parse(path).getroot().tag.endswith("svg"), path)

    def test_versions_agree(self):
        release = self.metainfo.find("releases/release")
        self.assertEqual(release.get("version"), VERSION)
        self.assertIn(f"This page describes version {VERSION}.", self.manual.read_text())
        changes = (self.share / "doc/quibcards/CHANGELOG.md").read_text(encoding="utf-8")
        newest = re.search(r"^## (\S+) - (\S+)$", changes, re.MULTILINE)
        self.assertEqual(newest.groups(), (VERSION, release.get("date")))

    def test_the_version_stands_in_one_place(self):
        for path in (pathlib.Path(SOURCE) / "desktop").rglob("*"):
            if path.is_file() and path.suffix != ".svg":
                self.assertNotIn(VERSION.encode(), path.read_bytes(), path)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
