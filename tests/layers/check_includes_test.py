"""Plants one violation of each kind in a small tree and expects check_includes to name it, and nothing else."""

import pathlib
import tempfile
import unittest

import check_includes

GOOD_TREE = {
    "tessara/tessara.h": ["tessara/platform/base/Object.h", "tessara/numeric/Curve.h", "tessara/plot/Page.h"],
    "tessara/platform/base/Object.h": ["string"],
    "tessara/platform/base/Object.cpp": ["tessara/platform/base/Object.h", "locale.h"],
    "tessara/numeric/Curve.h": ["tessara/platform/base/Object.h", "vector"],
    "tessara/numeric/Lookup.h": [],
    "tessara/numeric/Curve.cpp": ["tessara/numeric/Curve.h", "tessara/numeric/Lookup.h"],
    "tessara/platform/gdi/DC.h": ["tessara/platform/base/Object.h"],
    "tessara/platform/qt/drawing/Painter.h": ["QPainter", "QtGui/QFont", "tessara/platform/gdi/DC.h"],
    "tessara/platform/qt/windows/Peer.h": ["tessara/platform/qt/drawing/Painter.h"],
    "tessara/plot/Page.h": [],
    "tessara/plot/Page.cpp": ["tessara/plot/Page.h", "tessara/platform/gdi/DC.h"],
    "cli/Main.cpp": ["tessara/plot/Page.h", "CLI/CLI.hpp"],
}

# The file that gets one more include, the include, and what must be said about it.
PLANTED = [
    ("tessara/platform/gdi/DC.h", "tessara/plot/Page.h", "of level 3, from level 1"),
    ("tessara/platform/gdi/DC.h", "tessara/numeric/Curve.h", "of level 1, from level 1"),
    ("tessara/platform/base/Object.cpp", "tessara/numeric/Curve.h", "of level 1, from level 0"),
    ("tessara/numeric/Curve.cpp", "tessara/platform/files/File.h", "of level 1, from level 1"),
    ("tessara/numeric/Curve.cpp", "unistd.h", "not of the standard library"),
    ("tessara/numeric/Curve.cpp", "boost/array.hpp", "not of the standard library"),
    ("tessara/plot/Page.cpp", "QPainter", "which is Qt"),
    ("tessara/plot/Page.h", "QtGui/QPainter", "which is Qt"),
    ("tessara/plot/Page.cpp", "tessara/platform/qt/drawing/Painter.h", "nobody includes that folder"),
    ("tessara/platform/gdi/DC.h", "tessara/platform/ui/windows/Wnd.h", "of level 2, from level 1"),
    ("tessara/plot/Page.cpp", "tessara/tessara.h", "of level 6, from level 3"),
    ("tessara/plot/Page.cpp", "tessara/other/File.h", "whose folder has no level"),
    ("tessara/plot/Page.cpp", "Page.h", "not by its path from the root"),
    ("tessara/numeric/Curve.h", "tessara/numeric/Lookup.h", "is public and includes"),
    ("cli/Main.cpp", "tessara/numeric/Lookup.h", "which is internal"),
    ("cli/Main.cpp", "QString", "which is Qt"),
]


class CheckIncludes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name, included in GOOD_TREE.items():
            self.write(name, "".join(f'#include "{header}"\n' for header in included))

    def write(self, name, text, mode="a"):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        with path.open(mode, encoding="utf-8") as file:
            file.write(text)

    def assert_one_fault(self, name, message):
        faults = check_includes.check(self.root)
        self.assertEqual(len(faults), 1, faults)
        self.assertTrue(faults[0].startswith(name + ":"), faults)
        self.assertIn(message, faults[0])

    def test_accepts_a_good_tree(self):
        self.assertEqual(check_includes.check(self.root), [])

    def test_names_each_planted_include(self):
        for name, included, message in PLANTED:
            with self.subTest(name=name, included=included):
                good = (self.root / name).read_text(encoding="utf-8")
                self.write(name, f"  # include <{included}>\n")
                self.assert_one_fault(name, message)
                self.write(name, good, mode="w")

    def test_names_a_folder_without_level(self):
        self.write("tessara/other/File.h", "")
        self.assert_one_fault("tessara/other/File.h", "has no level")

    def test_names_an_exported_header_outside_the_umbrella(self):
        self.write("tessara/numeric/Lookup.h", "class TESSARA_API CLookup;\n")
        self.assert_one_fault("tessara/numeric/Lookup.h", "exports something")


if __name__ == "__main__":
    unittest.main()
