"""Tests that the documents name files that are there, and of the checker on a small tree."""
import json
import os
import pathlib
import re
import sys
import tempfile
import unittest

from paths import dead_links, missing, words_of

ROOT = pathlib.Path(sys.argv.pop())
DOCUMENTS = ("CONTRIBUTING.md", "FEATURES.md", "README.md", "docs/architecture.md",
             "docs/benchmarks.md", "docs/formats.md", "docs/fuzzing.md", "docs/lv2.md",
             "docs/macos.md", "docs/where.md")


class Documents(unittest.TestCase):
    def test_name_files_that_are_there(self):
        for document in DOCUMENTS:
            with self.subTest(document):
                self.assertEqual(missing(ROOT, document), [])

    def test_have_links_that_lead_somewhere(self):
        documents = [*ROOT.glob("*.md"), *ROOT.glob("docs/**/*.md"), *ROOT.glob("resources/*.md")]
        self.assertGreater(len(documents), 10)
        for document in documents:
            with self.subTest(document):
                self.assertEqual(list(dead_links(ROOT, document.relative_to(ROOT))), [])

    def test_name_presets_and_labels_that_are_there(self):
        presets = json.loads((ROOT / "CMakePresets.json").read_text())["configurePresets"]
        presets = {preset["name"] for preset in presets}
        lists = [*ROOT.glob("tests/**/CMakeLists.txt"), *ROOT.glob("tests/**/*.cmake"),
                 *ROOT.glob("fuzz/CMakeLists.txt"), *ROOT.glob("cmake/*.cmake")]
        tests = "\n".join(file.read_text() for file in lists)
        found = 0
        for document in (*ROOT.glob("*.md"), *ROOT.glob("docs/*.md")):
            text = document.read_text()
            for preset in re.findall(r"c(?:make|test)[^\n`]*? --preset (\w+)", text):
                self.assertIn(preset, presets, document)
                found += 1
            for label in re.findall(r"ctest[^\n`]*? -L (\S+?)[ `\n]", text):
                self.assertRegex(tests, rf"\b{label}\b", document)
        self.assertGreater(found, 8)

    def test_begin_commands_with_programs_that_can_be_run(self):
        found = set()
        for document in (*ROOT.glob("*.md"), *ROOT.glob("docs/*.md")):
            text = document.read_text()
            blocks = re.findall(r"^```\n(.*?)^```$|\n\n((?:    .*\n)+)", text, re.M | re.S)
            for line in "\n".join(map("\n".join, blocks)).splitlines():
                word = line.strip().partition(" ")[0].removeprefix("./")
                if word and (ROOT / word).is_file():
                    self.assertTrue(os.access(ROOT / word, os.X_OK), f"{document.name}: {line}")
                    found.add(word)
        self.assertLessEqual({"run", "test", "bench/run", "fuzz/search.sh", "tools/arm64.sh"},
                             found)

    def test_lead_from_each_control_of_the_manual_to_a_file(self):
        manual = (ROOT / "docs/manual/manual.rst").read_text()
        table = manual.split("\n     - What it does\n")[1].split("\n\n")[0]
        controls = re.findall(r"^   \* - \d+\n     - (.+)$", table, re.M)
        self.assertEqual(len(controls), 16)
        where = (ROOT / "docs/where.md").read_text()
        for word in re.findall(r"[A-Za-z]{2,}", " ".join(controls)):
            self.assertRegex(where, rf"(?i)\b{word}\b")

    def test_are_read(self):  # a document without a word names nothing that is missing either
        for document, word in (("docs/where.md", "plugin/vst24.h"),
                               ("CONTRIBUTING.md", "bench/run")):
            self.assertIn(word, words_of((ROOT / document).read_text()))


class Checker(unittest.TestCase):
    def check(self, text, *expected):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            for path in ("house/low/a.h", "house/linux/b.cpp", "docs/other.md", "run"):
                (root / path).parent.mkdir(parents=True, exist_ok=True)
                (root / path).write_text("")
            (root / "docs/where.md").write_text(text)
            self.assertEqual(missing(root, "docs/where.md"), list(expected))

    def test_finds_nothing_where_all_is_there(self):
        self.check("`house/low/a.h`, `house/low/`, `house/low`, `a.h`, `linux/`, `house/*/b.*`\n"
                   "[other](other.md#a-part)\n"
                   "```\n./run x.wav -o ~/y/z.wav  # gone/for/good\nhouse/low/a.h --all\n```\n")

    def test_sees_what_is_not_there(self):
        for name in ("house/low/c.h", "house/c.h", "gone/a.h", "c.h", "gone/", "house/gone/",
                     "house/*.mm", "a.h/"):
            with self.subTest(name):
                self.check(f"| a thing | `{name}` (`house/low/a.h`) |\n", name)

    def test_sees_it_in_a_command_and_in_a_link(self):
        self.check("`ctest house/x.sh -V`\n```\nhouse/y.sh\n```\n[the other](gone.md#a-part)\n",
                   "house/y.sh", "house/x.sh", "gone.md")

    def test_follows_links_to_headings(self):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / "a.md").write_text(
                "# A house, `low` & high\n```\n# not this\n```\n## Its door\n"
                "[x](#its-door) [y](#not-this) [z](b.md#roof)\n"
                "[u](b.md#floor) [v](c.md#roof) [w](https://orv.example#x)\n")
            (root / "b.md").write_text("[x](a.md#a-house-low--high)\n### Roof\n")
            self.assertEqual(list(dead_links(root, "a.md")), ["c.md", "#not-this", "b.md#floor"])
            self.assertEqual(list(dead_links(root, "b.md")), [])

    def test_leaves_out_what_is_not_the_trees(self):
        self.check("`build/release/x.so`, `~/.vst/a`, `/usr/lib/vst`, `std::vector`, `$HOME/x`, "
                   "`a=b/c`, plain/text.h, [far](https://orv.example)")


unittest.main(argv=sys.argv[:1] + [sys.argv[1]])
