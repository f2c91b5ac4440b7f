#!/usr/bin/env python3
"""Checks the check: planted faults are found, and only these."""
import tempfile
import unittest
from pathlib import Path

from check_links import faults

GOOD = """# Start: the first step
[page](docs/page.md), [far](https://example.org/none), [below](#start-the-first-step), `examples/data`, `docs/page.md`
![a picture
of two lines](docs/images/a.png) [LICENSE](LICENSE) [there](docs/page.md#second-part)
```cpp
  int n = 1;
  ++n;
```
"""


class CheckLinksTest(unittest.TestCase):
    def faults_of(self, readme, page="# Page\n## Second part\n[back](../README.md)\n"):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            (folder / "docs/images").mkdir(parents=True)
            (folder / "examples/data").mkdir(parents=True)
            for path, text in {"docs/page.md": page, "docs/images/a.png": "", "LICENSE": "",
                               "examples/data/a.cpp": "{\n  int n = 1;\n  ++n;\n}\n"}.items():
                (folder / path).write_text(text, encoding="utf-8")
            if readme is not None:
                (folder / "README.md").write_text(readme, encoding="utf-8")
            return [fault.replace(name + "/", "") for fault in faults(folder)]

    def test_sound_pages_pass(self):
        self.assertEqual(self.faults_of(GOOD), [])

    def test_planted_faults_are_found(self):
        for planted in ("[x](none.md)", "[x](docs/page.md#third-part)", "![a\nb](docs/b.png)", "`examples/none`",
                        "[x](#no-heading)", "\n```cpp\n  int n = 2;\n  ++n;\n```\n"):
            with self.subTest(planted):
                self.assertEqual(len(self.faults_of(GOOD + planted)), 1)
        self.assertEqual(self.faults_of(GOOD, "[x](docs/page.md)"),
                         ["README.md: nothing at docs/page.md#second-part",
                          "docs/page.md: nothing at docs/page.md"])
        self.assertEqual(len(self.faults_of(None)), 2)


if __name__ == "__main__":
    unittest.main()
