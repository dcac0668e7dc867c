"""Tests of the layout: this source tree, and the checker on small trees with planted violations."""
import pathlib
import sys
import tempfile
import unittest

from layout import Tree, violations

ROOT = pathlib.Path(sys.argv.pop())
TABLE = """| floor | room | what lives there | may include |
|---|---|---|---|
| 1 | `ground/` | | |
| 2 | `house/low/` | | the rooms above, the toolkit |
| 3 | `house/high/` | | the rooms above |
| 3 | `guest/` | | `ground/door.h`, `house/low/` |
| – | `tests/` | | everything |
"""


class Tree_(unittest.TestCase):
    def test_has_no_violations(self):
        self.assertEqual(violations(ROOT), [])

    def test_is_read_whole(self):  # an empty tree would have no violations either
        for path in ("plugin/vst24.h", "effect/trelvan.cpp", "presetsystem/image/presetimage.h",
                     "editor/window/adeditor.cpp", "platform/linux/preferencestore.cpp",
                     "tests/plugin/vst24test.cpp"):
            self.assertIn(path, Tree(ROOT).texts)


class Checker(unittest.TestCase):
    def check(self, files, *expected):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "CONTRIBUTING.md").write_text(TABLE)
            for path, text in {"ground/door.h": [], "house/low/a.h": [], **files}.items():
                (root / path).parent.mkdir(parents=True, exist_ok=True)
                whole = "// A file.\n" + "".join(f'#include "{name}"\n' for name in text)
                (root / path).write_text(text if isinstance(text, str) else whole)
            self.assertEqual(violations(root), list(expected))

    def test_finds_nothing_in_a_tree_in_order(self):
        self.check({"house/low/b.cpp": ["house/low/a.h", "ground/door.h", "vstgui.h",
                                        "lib/events.h"],
                    "house/high/a.cpp": ["house/low/a.h"],
                    "guest/a.cpp": ["ground/door.h", "house/low/a.h"],
                    "tests/a.cpp": ["house/low/a.h", "vstgui.h"],
                    "ground/b.h": "// Two lines\n// of text.\n#if 1\n",
                    "ground/c.cpp": "// A file.\n#include <vector>\n#include <linux/limits.h>\n"})

    def test_sees_every_border_that_is_crossed(self):
        for path, target in (("ground/a.cpp", "house/low/a.h"),
                             ("house/low/b.cpp", "house/high/b.h"),
                             ("guest/a.cpp", "ground/b.h"), ("ground/a.cpp", "vstgui.h"),
                             ("house/high/a.cpp", "lib/events.h"),
                             ("house/low/linux/a.cpp", "guest/b.h")):
            with self.subTest(path):
                self.check({"house/high/b.h": [], "guest/b.h": [], "ground/b.h": [],
                            path: [target]},
                           f"{path}:2: may not include {target}")

    def test_sees_a_border_crossed_beside_the_file_or_in_angle_brackets(self):
        self.check({"ground/a.cpp": "// A file.\n #  import <house/low/a.h>\n"
                                    "#include \"../house/low/a.h\"\n"},
                   *(f"ground/a.cpp:{line}: may not include house/low/a.h" for line in (2, 3)))

    def test_sees_an_include_of_a_missing_file_and_a_file_in_no_room(self):
        self.check({"tests/a.cpp": ["ground/gone.h"], "house/a.h": []},
                   "house/a.h:1: is in no room",
                   "tests/a.cpp:2: includes ground/gone.h, which is not there")

    def test_sees_a_cycle_once(self):
        self.check({"ground/a.h": ["ground/b.h"], "ground/b.h": ["ground/a.h"],
                    "ground/c.h": ["ground/a.h"]},
                   "ground/a.h:1: is in a cycle of includes: "
                   "ground/a.h -> ground/b.h -> ground/a.h")

    def test_sees_a_file_that_does_not_open_with_a_sentence(self):
        for text in ("", "#pragma once\n// A file.\n", "//\n", "// a title\n", "// .\n"):
            with self.subTest(text):
                self.check({"ground/a.h": text},
                           "ground/a.h:1: does not open with a comment that says in a sentence "
                           "what the file is")

    def test_sees_the_toolkit_named_and_not_included(self):
        self.check({"house/low/b.cpp": "// A file.\nVSTGUI::CView* view;\n",
                    "house/low/c.h": ["vstgui.h"],
                    "house/low/c.cpp": "// A file.\n#include \"house/low/c.h\"\n"
                                       "VSTGUI::CView* view;\n"},
                   "house/low/b.cpp:1: names the toolkit and includes nothing of it")

    def test_sees_googletest_used_without_being_included(self):
        self.check({"tests/a.cpp": "// A file.\nTEST(A, B) {}\n",
                    "tests/b.cpp": "// A file.\n#include \"tests/b.h\"\nEXPECT_TRUE(true);\n",
                    "tests/b.h": "// A file.\n#include \"tests/c.h\"\n",
                    "tests/c.h": "// A file.\n#include <gmock/gmock.h>\n",
                    "tests/d.cpp": "// A file.\n#include <gtest/gtest.h>\nASSERT_TRUE(true);\n"},
                   "tests/a.cpp:1: names GoogleTest and includes nothing of it")

    def test_sees_conditions_on_the_system_outside_its_folders(self):
        for line in ("#ifdef __APPLE__", "#if defined(__linux__) && 1", "  #  elif TARGET_OS_OSX",
                     "#ifndef _WIN32"):
            with self.subTest(line):
                self.check({"house/low/mac/a.mm": f"// A file.\n{line}\n",
                            "ground/a.h": f"// A file.\n{line}\n"},
                           "ground/a.h:2: asks for the operating system")


unittest.main(argv=sys.argv[:1] + [{"Tree": "Tree_", "Checker": "Checker"}[sys.argv[1]]])
