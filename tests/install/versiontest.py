"""Tests that the version in CMakeLists.txt is the one that everybody sees."""
import pathlib
import re
import subprocess
import sys
import unittest

SOURCE, BUILD = map(pathlib.Path, sys.argv[1:3])
VERSION = re.search(r"project\(Trelvan VERSION (\S+)", (SOURCE / "CMakeLists.txt").read_text())[1]


def said_by_widen(*options):
    return subprocess.run([BUILD / "widen", *options], capture_output=True, text=True,
                          check=True).stdout


class Version(unittest.TestCase):
    def test_is_what_widen_says(self):
        self.assertTrue(said_by_widen("--version").startswith(f"widen {VERSION},"))

    def test_is_what_hosts_are_told(self):
        told = said_by_widen("--plugin", str(BUILD / "Trelvan.vst"), "--info")
        self.assertRegex(told, rf"\b{VERSION.replace('.', '')}0\b")

    def test_is_on_the_about_panel(self):
        module, = BUILD.glob("Trelvan.vst/Contents/*/Trelvan.so")
        self.assertIn(f"Orv Trelvan   v.{VERSION}\0".encode(), module.read_bytes())

    def test_is_on_the_manuals_first_page(self):
        manual = (SOURCE / "docs/manual/manual.rst").read_text()
        self.assertIn(f"\nStereo widener by Orv, version {VERSION}\n", manual)

    def test_is_what_software_centres_are_told(self):
        told = (BUILD / "share/metainfo/com.orv.trelvan.metainfo.xml").read_text()
        self.assertIn(f'<release version="{VERSION}"', told)

    def test_is_the_bundles_on_macos(self):
        rules = (SOURCE / "cmake/PluginMac.cmake").read_text()
        for name in ("BUNDLE_VERSION", "SHORT_VERSION_STRING"):
            self.assertIn(f"MACOSX_BUNDLE_{name} ${{PROJECT_VERSION}}", rules)

    def test_stands_nowhere_else(self):
        written = re.compile(rf"(?<!\d)(?<!\d\.){re.escape(VERSION)}(?![\d.])")
        for room in ("platform", "presetsystem", "plugin", "effect", "editor", "host", "cmake"):
            for path in (SOURCE / room).rglob("*.*"):
                if path.is_file():
                    self.assertIsNone(written.search(path.read_text()), path)


unittest.main(argv=sys.argv[:1])
