"""Tests that the notices name all work of others that is compiled or copied into plug-in and widen,
by what the compiler read and what was linked."""
import os
import pathlib
import re
import subprocess
import sys
import unittest

BUILD, SOURCE, TOOLKIT = map(pathlib.Path, sys.argv[1:4])
BUNDLE = BUILD / "Trelvan.vst/Contents"
NOTICES = (BUNDLE / "Resources/NOTICES.txt").read_text()
# Which notice a package of headers is under: all of it is compiled in.
HEADERS_ONLY = {"libcli11-dev": "CLI11", "lv2-dev": "LV2",
                "nlohmann-json3-dev": "JSON for Modern C++"}
# Constants and calls of the system, and of the compiler, whose licence leaves programs alone.
SYSTEM = re.compile(r"libc6-dev|linux-libc-dev|libgcc-\d+-dev|libstdc\+\+-\d+-dev|x11proto-dev")


def output_of(*command):
    return subprocess.run(list(map(str, command)), capture_output=True, text=True,
                          check=True).stdout


def files_read():
    """What was read for the objects of the plug-in and of widen."""
    ours = False
    for line in output_of("ninja", "-C", BUILD, "-t", "deps").splitlines():
        if not line.startswith(" "):
            ours = re.match(r"(CMakeFiles|vstgui|host)/", line) is not None
        elif ours:
            yield pathlib.Path(os.path.normpath(BUILD / line.strip()))


def section(name):
    line = "=" * 100
    return NOTICES.split(f"\n{line}\n{name}\n{line}\n")[1].split(f"\n{line}\n")[0]


class Notices(unittest.TestCase):
    def setUp(self):
        self.read = set(files_read())
        self.assertGreater(len(self.read), 500)

    def assert_notice(self, name):
        self.assertIn(f"\n  {name}", NOTICES.split("=" * 100)[0])
        self.assertRegex(section(name), r"(?i)copyright|\(c\)")
        self.assertRegex(section(name), r"(?i)permission|redistribution")

    def test_name_each_library_of_which_only_headers_are_there(self):
        # LV2's stand below /usr/include by links alone.
        headers = [path.resolve() for path in self.read if path.is_relative_to("/usr")]
        packages = set(re.findall(r"^([^:,\s]+)", output_of("dpkg", "-S", *headers), re.M))
        found = set()
        for package in packages:
            library = re.search(r"/lib[^/\n]+\.so$", output_of("dpkg", "-L", package), re.M)
            if SYSTEM.fullmatch(package) or library:
                continue  # loaded, not copied
            self.assertIn(package, HEADERS_ONLY, "compiled in, and without a notice")
            self.assert_notice(HEADERS_ONLY[package])
            found.add(package)
        self.assertEqual(found, set(HEADERS_ONLY))

    def test_name_the_toolkit_and_what_is_in_it_of_others(self):
        self.assert_notice("VSTGUI 4.13.3")
        licence = (TOOLKIT / "LICENSE").read_text().split("THIS SOFTWARE")[1].split()
        self.assertEqual(section("VSTGUI 4.13.3").split("THIS SOFTWARE")[1].split(), licence)
        files = [path for path in self.read if path.is_relative_to(TOOLKIT)]
        self.assertGreater(len(files), 100)
        texts = {path.stem: path.read_text() for path in files if path.suffix in (".h", ".cpp")}
        others = {name for name, text in texts.items()
                  if re.search(r"(?i)licen[cs]e|copyright|public domain", text)
                  and "steinbergmedia/vstgui/LICENSE" not in text}
        self.assertIn("stb_textedit", others)
        for name in others:
            self.assert_notice(name)

    def test_name_the_font(self):
        fonts = {path.stem for path in BUNDLE.glob("Resources/Fonts/*.ttf")}
        self.assertEqual(fonts, {"LiberationSans-Regular"})
        self.assert_notice("Liberation Sans")

    def test_name_all_there_is_since_no_other_archive_is_linked(self):
        commands = output_of("ninja", "-C", BUILD, "-t", "commands", "Trelvan", "widen")
        links = [line for line in commands.splitlines() if re.search(r"-o (widen|\S+Trelvan\.so)",
                                                                     line)]
        self.assertEqual(len(links), 2)
        for archive in re.findall(r"\S+\.a\b", " ".join(links)):
            self.assertTrue((BUILD / archive).resolve().is_relative_to(BUILD), archive)

    def test_stand_beside_our_own_licence(self):
        self.assertEqual((BUNDLE / "Resources/LICENSE.txt").read_text(),
                         (SOURCE / "LICENSE").read_text())


unittest.main(argv=sys.argv[:1])
