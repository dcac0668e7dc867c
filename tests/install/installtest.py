"""Tests of ./run --install and --uninstall: what lies where, how it gets there, what is left."""
import hashlib
import mmap
import os
import pathlib
import random
import re
import shutil
import stat
import struct
import subprocess
import sys
import unittest

from installation import InstallationTest, files_in

InstallationTest.SOURCE, InstallationTest.BUILD = map(pathlib.Path, sys.argv[2:4])
MANUAL = "Trelvan Operation Manual.pdf"


class Places(InstallationTest):
    def test_are_those_that_hosts_shells_and_readers_look_in(self):
        self.install()
        for file in ("bin/widen", "share/man/man1/widen.1", "share/man/man7/trelvan.7",
                     "share/bash-completion/completions/widen", "share/zsh/site-functions/_widen",
                     "share/fish/vendor_completions.d/widen.fish",
                     "share/metainfo/com.orv.trelvan.metainfo.xml",
                     f"lib/vst/Trelvan.vst/Contents/Resources/{MANUAL}",
                     "lib/vst/Trelvan.vst/Contents/Resources/NOTICES.txt",
                     "lib/vst/Trelvan.vst/Contents/Resources/LICENSE.txt",
                     "share/doc/trelvan-vst/NOTICES.txt", "share/doc/trelvan-lv2/NOTICES.txt",
                     "share/doc/widen/NOTICES.txt",
                     f"share/doc/trelvan/{MANUAL}",
                     "share/doc/trelvan/Trelvan Operation Manual.html",
                     "share/trelvan/presets/Factory.orb"):
            self.assertTrue((self.prefix / file).is_file(), file)
        for bundle, place in (("Trelvan.vst", "lib/vst"), ("trelvan.lv2", "lib/lv2")):
            built = files_in(self.BUILD / bundle)
            self.assertEqual(files_in(self.prefix / place / bundle), built)
            self.assertGreater(len(built), 100)  # pictures

    def test_of_a_user_are_in_the_home_folder_and_the_manual_is_where_its_button_looks(self):
        self.double("id", "echo 1000")
        self.install("--prefix", self.prefix)  # which no user's home has to do with
        self.assertEqual(files_in(self.home), set())
        self.run_in(self.folder, self.tree / "run", "--install")
        header = (self.SOURCE / "platform/manualopener.h").read_text()
        manual = re.search(r'kManualPath\[\] = "(.*)"', header).group(1)
        self.assertTrue((self.home / manual).is_file())
        self.assertTrue((self.home / manual).with_name("Presets").is_dir())
        self.assertTrue((self.home / ".local/bin/widen").is_file())
        self.module(self.home / ".vst")
        self.assertTrue((self.home / ".lv2/trelvan.lv2/manifest.ttl").is_file())
        self.run_in(self.folder, self.tree / "run", "--uninstall")
        self.assertEqual(files_in(self.home), set())

    def test_follow_the_name_of_the_documents_folder(self):
        self.double("id", "echo 1000")
        self.double("xdg-user-dir", 'echo "$HOME/My Papers"')
        self.run_in(self.folder, self.tree / "run", "--install")
        self.assertTrue((self.home / "My Papers/Orv/Trelvan" / MANUAL).is_file())

    def test_may_have_any_name_and_be_named_from_here(self):
        name = "it's a & b (\"c\") $d"
        self.install(f"--prefix={name}")
        self.module(self.folder / name / "lib/vst")
        self.uninstall(f"--prefix={name}")
        self.assertEqual(files_in(self.folder / name), set())

    def test_are_filled_again_where_root_did_it_before(self):
        release = self.tree / "build/release"
        release.unlink()
        release.mkdir()
        script = (self.BUILD / "cmake_install.cmake").read_text()
        (release / "cmake_install.cmake").write_text(
            script.replace(f"{self.BUILD}/${{CMAKE_INSTALL_MANIFEST}}",
                           f"{release}/${{CMAKE_INSTALL_MANIFEST}}"))
        # Nobody can write it, root neither.
        (release / "install_manifest.txt").symlink_to("/nowhere/list")
        self.install()

    def test_can_be_read_by_everybody_at_any_umask(self):
        self.install(umask=0o077)
        for path in self.prefix.rglob("*"):
            mode = stat.S_IMODE(path.stat().st_mode)
            program = path.is_dir() or path.name == "widen" and path.parent.name == "bin"
            if path.parent.name != "installed":  # the lists are the installer's
                self.assertEqual(mode, 0o755 if program else 0o644, path)

    def test_have_a_widen_that_finds_the_plug_in_and_its_presets(self):
        self.install()
        widen = self.prefix / "bin/widen"
        presets = self.prefix / "share/trelvan/presets"
        names = [line[6:] for line in self.run_in("/", widen, "--list-presets").splitlines()]
        self.assertEqual(self.run_in("/", widen, "--bank", presets / "Factory.orb",
                                     "--list-presets").splitlines(),
                         self.run_in("/", widen, "--list-presets").splitlines())
        self.assertEqual({path.stem for path in presets.glob("*.orv")}, set(names))
        self.assertEqual(len(set(names)), 24)
        for name in set(names):
            self.assertEqual(
                self.run_in("/", widen, "--preset", presets / f"{name}.orv", "--list-params"),
                self.run_in("/", widen, "--preset", name, "--list-params"))

    def test_are_told_to_software_centres(self):
        self.install()
        self.run_in("/", "appstreamcli", "validate", "--no-net",
                    self.prefix / "share/metainfo/com.orv.trelvan.metainfo.xml")


class Update(InstallationTest):
    def older(self):
        """An installation with an older module: other bytes, and more of them."""
        self.install()
        module = self.module()
        content = module.read_bytes()
        module.unlink()
        module.write_bytes(bytes(byte ^ 255 for byte in content) + b"older" * 1000)
        return module

    def test_leaves_a_mapped_module_alone_and_tells_who_has_it(self):
        module = self.older()
        before = module.read_bytes()
        # Of this process: what it maps here it reads when the update is done.
        with module.open("rb") as file, mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ) as mapped:
            said = self.install()
            self.assertRegex(said, rf"process {os.getpid()}\) has the old {module} open")
            # Read on only where that cannot end this process, too, as it would a host's.
            seen = mapped[:] if module.stat().st_ino != os.fstat(file.fileno()).st_ino else b""
        self.assertEqual(hashlib.sha256(seen).digest(), hashlib.sha256(before).digest())
        self.assertNotEqual(module.read_bytes(), before)
        self.assertNotIn("has the old", self.install())

    def test_lets_a_rendering_host_go_on(self):
        self.install()
        # A WAV of unknown length that comes bit by bit.
        header = (b"RIFF\xff\xff\xff\xffWAVEfmt " + struct.pack("<IHHIIHH", 16, 1, 2, 48000,
                                                              192000, 4, 16)
                  + b"data\xff\xff\xff\xff")
        sound = random.Random(1).randbytes(16384)  # less than a pipe holds

        def render(between):
            command = (self.BUILD / "widen", "--plugin", self.prefix / "lib/vst/Trelvan.vst",
                       "--preset", "mix 1", "--gain", "-12dB", "-q", "-", "-o", "-")
            with subprocess.Popen(list(map(str, command)), stdin=subprocess.PIPE,
                                  stdout=subprocess.PIPE, bufsize=0,
                                  env=self.environment()) as host:
                host.stdin.write(header + sound)
                first = host.stdout.read(1000)  # it is at work
                between()
                return first + host.communicate(sound * 50)[0], host.returncode

        whole, status = render(lambda: None)
        self.assertEqual(status, 0)
        self.assertEqual(len(whole), 44 + 51 * len(sound))
        self.assertEqual(render(self.install), (whole, 0))

    def test_removes_what_it_no_longer_has(self):
        self.install()
        gone = self.prefix / "share/doc/widen/gone"
        gone.write_text("of an older version")
        mine = self.prefix / "share/doc/widen/mine"
        mine.write_text("of the user")
        changed = self.prefix / "share/doc/widen/changed"
        changed.write_text("by the user")
        names = self.prefix / "share/trelvan/installed/widen.txt"
        with names.open("a") as file:
            file.write(f"{hashlib.sha256(gone.read_bytes()).hexdigest()}  {gone}\n"
                       f"{hashlib.sha256(b'older').hexdigest()}  {changed}\n")
        self.install()
        self.assertFalse(gone.exists())
        self.assertTrue(mine.exists())
        self.assertTrue(changed.exists())

    def test_keeps_a_preset_that_the_user_has_saved_over(self):
        self.install()
        preset = self.prefix / "share/trelvan/presets/mix 1.orv"
        shutil.copy(preset.with_name("mix 2.orv"), preset)
        before = preset.read_bytes()
        self.install()
        self.assertEqual(preset.read_bytes(), before)
        self.uninstall()
        self.assertEqual(preset.read_bytes(), before)


class Removal(InstallationTest):
    def test_takes_exactly_that_away(self):
        self.prefix.mkdir()
        for file in ("share/man/man1/other.1", "lib/vst/Other.vst/x", "bin/other"):
            (self.prefix / file).parent.mkdir(parents=True)
            (self.prefix / file).write_text("another program's")
        before = files_in(self.prefix)
        self.install()
        self.install()  # the folders are still the installation's
        (self.prefix / "share/trelvan/presets/mine.orv").write_text("of the user")
        (self.prefix / "lib/vst/Trelvan.vst/.mine").write_text("of the user")
        self.uninstall()
        self.assertEqual(files_in(self.prefix) - before,
                         {"share/trelvan", "share/trelvan/presets", "lib/vst/Trelvan.vst",
                          "share/trelvan/presets/mine.orv", "lib/vst/Trelvan.vst/.mine"})
        self.assertEqual(before - files_in(self.prefix), set())

    def test_says_where_nothing_is_installed(self):
        self.assertIn("Nothing is installed", self.uninstall(status=1))

    def test_is_not_begun_with_words_that_it_does_not_know(self):
        for words in (("--prefux", "x"), ("--prefix",), ("--prefix", ""), ("x",)):
            self.assertIn("usage", self.uninstall(*words, status=2))
            self.assertIn("usage", self.install(*words, status=2))

    def test_is_left_to_others_where_it_was_installed_for_a_package(self):
        staged = self.folder / "staged"
        self.run_in("/", "env", f"DESTDIR={staged}", "cmake", "--install", self.BUILD,
                    "--prefix", self.prefix)
        self.module(pathlib.Path(f"{staged}{self.prefix}/lib/vst"))
        self.assertEqual(list(staged.rglob("installed")), [])
        self.assertFalse(self.prefix.exists())


unittest.main(argv=sys.argv[:2])
