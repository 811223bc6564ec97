"""The include lint finds what it is there to find."""

import pathlib
import tempfile
import unittest

import includes


class IncludeLint(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.root = pathlib.Path(self.folder.name)
        self.write("base/CMakeLists.txt", "quib_add_logic(base\n  SOURCES Text.cpp)\n")
        self.write("cards/CMakeLists.txt",
                   "quib_add_logic(cards\n  SOURCES Stack.cpp\n  USES base)\n")
        self.write("decks/CMakeLists.txt",
                   "quib_add_logic(decks\n  SOURCES Deck.cpp\n  USES base\n  LIBRARIES fmt::fmt)\n")
        self.write("windows/frame/CMakeLists.txt",
                   "quib_add_windows(frame\n  SOURCES Form.cpp\n  USES base\n  LIBRARIES Qt6::Widgets)\n")
        self.write("windows/stacks/CMakeLists.txt",
                   "quib_add_windows(stacks\n  SOURCES frmLoad.cpp\n  USES cards windows/frame)\n")
        self.write("windows/stacks/frmLoad.cpp", '#include "windows/stacks/frmLoad.h"\n#include <QWidget>\n')
        self.write("windows/stacks/frmLoad.h", "#include <QWidget>\n")
        self.write("windows/frame/Form.cpp", "")
        self.write("base/Text.cpp", "")
        self.write("cards/Stack.cpp", "")
        self.write("decks/Deck.cpp", "")

    def tearDown(self):
        self.folder.cleanup()

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def complaints(self):
        return includes.complaints_about(self.root)

    def test_downward_includes_pass(self):
        self.write("cards/Stack.cpp", '#include "base/Text.h"\n#include <vector>\n')
        self.write("windows/stacks/frmLoad.cpp",
                   '#include "base/Text.h"\n#include "cards/Stack.h"\n#include "windows/frame/Form.h"\n')
        self.assertEqual(self.complaints(), [])

    def test_an_upward_include_is_found(self):
        self.write("base/Text.cpp", '#include "cards/Stack.h"\n')
        self.assertIn("base/Text.cpp: base may not include cards/Stack.h", self.complaints())

    def test_an_upward_include_between_windows_is_found(self):
        self.write("windows/frame/Form.cpp", '#include "windows/stacks/frmLoad.h"\n')
        self.assertIn("windows/frame/Form.cpp: windows/frame may not include windows/stacks/frmLoad.h",
                      self.complaints())

    def test_the_toolkit_in_logic_is_found(self):
        self.write("cards/Stack.cpp", "#include <QString>\n")
        self.assertIn("cards/Stack.cpp: includes <QString> outside windows/", self.complaints())

    def test_a_window_in_logic_is_found(self):
        self.write("cards/Stack.cpp", '#include "windows/stacks/frmLoad.h"\n')
        self.assertIn("cards/Stack.cpp: cards may not include windows/stacks/frmLoad.h",
                      self.complaints())

    def test_rooms_that_use_each_other_are_found(self):
        self.write("base/CMakeLists.txt", "quib_add_logic(base\n  SOURCES Text.cpp\n  USES cards)\n")
        self.assertIn("base/CMakeLists.txt: USES leads back to base", self.complaints())

    def test_a_room_that_is_not_there_is_found(self):
        self.write("base/CMakeLists.txt", "quib_add_logic(base\n  SOURCES Text.cpp\n  USES attic)\n")
        self.assertIn("base/CMakeLists.txt: there is no room attic", self.complaints())

    def test_libraries_that_are_named_pass(self):
        self.write("decks/Deck.cpp", '#include "base/Text.h"\n#include <fmt/format.h>\n')
        self.assertEqual(self.complaints(), [])

    def test_a_library_that_is_not_named_is_found(self):
        self.write("decks/Deck.cpp", "#include <csv.h>\n")
        self.write("base/Text.cpp", "#include <fmt/format.h>\n")
        self.assertIn("decks/Deck.cpp: decks does not name libcsv", self.complaints())
        self.assertIn("base/Text.cpp: base does not name fmt::fmt", self.complaints())

    def test_a_toolkit_linked_to_logic_is_found(self):
        self.write("decks/CMakeLists.txt",
                   "quib_add_logic(decks\n  SOURCES Deck.cpp)\n"
                   "target_link_libraries(quib_decks PRIVATE Qt6::Core)\n")
        self.assertIn("decks/CMakeLists.txt: links the toolkit outside windows/", self.complaints())

    def test_a_source_that_is_not_built_is_found(self):
        self.write("base/Left.cpp", "")
        self.assertIn("base/Left.cpp: is in no list of base/CMakeLists.txt", self.complaints())

    def test_a_circle_of_headers_is_found(self):
        self.write("base/A.h", '#include "base/B.h"\n')
        self.write("base/B.h", '#include "base/A.h"\n')
        self.assertTrue(any(line.startswith("a circle") for line in self.complaints()))


if __name__ == "__main__":
    unittest.main()
