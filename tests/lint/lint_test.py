"""The include lint finds what it is there to find."""

import pathlib
import tempfile
import unittest

import includes


class IncludeLint(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.root = pathlib.Path(self.folder.name)
        for name in includes.FOLDERS:
            self.write(f"{name}/CMakeLists.txt", "")
        self.write("base/CMakeLists.txt", "quib_add_logic(base\n  SOURCES Text.cpp)\n")
        self.write("cards/CMakeLists.txt",
                   "quib_add_logic(cards\n  SOURCES Stack.cpp\n  USES base)\n"
                   "quib_add_windows(SOURCES frmLoad.cpp)\n")
        self.write("convert/CMakeLists.txt",
                   "quib_add_logic(convert\n  SOURCES Deck.cpp\n  USES base\n  LIBRARIES fmt::fmt)\n")
        self.write("cards/frmLoad.cpp", '#include "cards/frmLoad.h"\n#include <QWidget>\n')
        self.write("cards/frmLoad.h", "#include <QWidget>\n")
        self.write("base/Text.cpp", "")

    def tearDown(self):
        self.folder.cleanup()

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def complaints(self):
        return [*includes.wrong_arrows(self.root), *includes.toolkit_in_programs(self.root),
                *includes.header_circles(self.root)]

    def test_downward_includes_pass(self):
        self.write("cards/Stack.cpp", '#include "base/Text.h"\n#include <vector>\n')
        self.assertEqual(self.complaints(), [])

    def test_an_upward_include_is_found(self):
        self.write("base/Text.cpp", '#include "cards/Stack.h"\n')
        self.assertIn("base/Text.cpp: base may not include cards/Stack.h", self.complaints())

    def test_the_toolkit_in_logic_is_found(self):
        self.write("cards/Stack.cpp", "#include <QString>\n")
        self.assertIn("cards/Stack.cpp: logic includes <QString>", self.complaints())

    def test_a_window_in_logic_is_found(self):
        self.write("cards/Stack.cpp", '#include "cards/frmLoad.h"\n')
        self.assertIn("cards/Stack.cpp: logic includes the window cards/frmLoad.h",
                      self.complaints())

    def test_libraries_that_are_named_pass(self):
        self.write("convert/Deck.cpp", '#include "base/Text.h"\n#include <fmt/format.h>\n')
        self.assertEqual(self.complaints(), [])

    def test_a_library_that_is_not_named_is_found(self):
        self.write("convert/Deck.cpp", "#include <csv.h>\n")
        self.write("base/Text.cpp", "#include <fmt/format.h>\n")
        self.assertIn("convert/Deck.cpp: convert does not name libcsv", self.complaints())
        self.assertIn("base/Text.cpp: base does not name fmt::fmt", self.complaints())

    def test_the_toolkit_in_a_folder_without_windows_is_found(self):
        self.write("convert/main.cpp", "#include <QString>\n")
        self.assertIn("convert/main.cpp: includes QString in a folder without windows", self.complaints())
        self.write("convert/main.cpp", '#include "cards/frmLoad.h"\n')
        self.assertIn("convert/main.cpp: includes cards/frmLoad.h in a folder without windows",
                      self.complaints())

    def test_a_toolkit_linked_to_a_folder_without_windows_is_found(self):
        self.write("convert/CMakeLists.txt", "target_link_libraries(quibconv PRIVATE Qt6::Core)\n")
        self.assertIn("convert/CMakeLists.txt: links the toolkit in a folder without windows",
                      self.complaints())

    def test_a_circle_of_headers_is_found(self):
        self.write("base/A.h", '#include "base/B.h"\n')
        self.write("base/B.h", '#include "base/A.h"\n')
        self.assertTrue(any(line.startswith("a circle") for line in self.complaints()))


if __name__ == "__main__":
    unittest.main()
