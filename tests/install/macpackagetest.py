"""Tests of the scripts that sign and notarise a pkg, with stand-ins for Apple's programs."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SOURCE, CMAKE = sys.argv[1:3]


class MacPackage(unittest.TestCase):
    def setUp(self):
        work = tempfile.TemporaryDirectory(prefix="trelvan-test-")
        self.addCleanup(work.cleanup)
        self.folder = pathlib.Path(work.name)
        self.said = self.folder / "said"
        for name in ("codesign", "xcrun"):
            double = self.folder / "bin" / name
            double.parent.mkdir(exist_ok=True)
            double.write_text(f'#!/bin/sh\necho {name} "$*" >>"{self.said}"\n'
                              'exit ${REFUSES:-0}\n')
            double.chmod(0o755)
        self.bundle = self.folder / "plugin/Library/Audio/Plug-Ins/VST/Trelvan.vst"
        self.widen = self.folder / "widen/usr/local/bin/widen"
        for file in (self.bundle / "Contents/Info.plist", self.widen):
            file.parent.mkdir(parents=True)
            file.touch()

    def run_script(self, script, status=0, refuses=0, **variables):
        done = subprocess.run(
            [CMAKE, *(f"-DCPACK_{name}={value}" for name, value in variables.items()),
             f"-DCPACK_TEMPORARY_INSTALL_DIRECTORY={self.folder}", "-P",
             f"{SOURCE}/cmake/{script}"],
            env={**os.environ, "PATH": f"{self.folder}/bin:{os.environ['PATH']}",
                 "REFUSES": str(refuses)}, capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, status, done.stderr)
        return self.said.read_text().splitlines() if self.said.exists() else []

    def test_is_left_alone_where_nobody_is_named(self):
        self.assertEqual(self.run_script("SignMac.cmake", TRELVAN_SIGNING_IDENTITY="-"), [])
        self.assertEqual(self.run_script("NotarizeMac.cmake", TRELVAN_NOTARY_PROFILE="",
                                         PACKAGE_FILES="a.pkg"), [])

    def test_has_its_programs_signed_as_a_notary_asks(self):
        said = self.run_script("SignMac.cmake", TRELVAN_SIGNING_IDENTITY="Developer ID: Orv")
        words = "codesign --force --options runtime --timestamp --sign Developer ID: Orv"
        self.assertEqual(sorted(said), [f"{words} {self.bundle}", f"{words} {self.widen}"])

    def test_is_sent_to_the_notary_and_gets_the_ticket(self):
        said = self.run_script("NotarizeMac.cmake", TRELVAN_NOTARY_PROFILE="orv",
                               PACKAGE_FILES="/x/a.pkg")
        self.assertEqual(said, [
            "xcrun notarytool submit /x/a.pkg --keychain-profile orv --wait",
            "xcrun stapler staple /x/a.pkg"])

    def test_is_none_where_signature_or_notary_are_refused(self):
        self.run_script("SignMac.cmake", status=1, refuses=1, TRELVAN_SIGNING_IDENTITY="Orv")
        self.said.unlink()
        said = self.run_script("NotarizeMac.cmake", status=1, refuses=1,
                               TRELVAN_NOTARY_PROFILE="orv", PACKAGE_FILES="/x/a.pkg")
        self.assertEqual(len(said), 1)


unittest.main(argv=sys.argv[:1])
