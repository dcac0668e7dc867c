"""Tests of what cpack makes: Debian's packages and the tarball, twice, the second time in another
place and time zone, by somebody with another umask."""
import gzip
import os
import pathlib
import re
import subprocess
import sys
import tarfile
import tempfile
import unittest

SOURCE, BUILD, CPACK = map(pathlib.Path, sys.argv[1:4])
VERSION = re.search(r"project\(Trelvan VERSION (\S+)", (SOURCE / "CMakeLists.txt").read_text())[1]
NAMES = ("trelvan-vst", "trelvan-lv2", "widen", "trelvan-doc")


def output_of(*command):
    return subprocess.run(list(map(str, command)), capture_output=True, text=True,
                          check=True).stdout


class Packages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.work = tempfile.TemporaryDirectory(prefix="trelvan-test-")
        cls.addClassCleanup(cls.work.cleanup)
        cls.folder = pathlib.Path(cls.work.name)
        # Another file system has the files in another order.
        shared = tempfile.TemporaryDirectory(
            dir="/dev/shm" if os.access("/dev/shm", os.W_OK) else None)
        cls.addClassCleanup(shared.cleanup)
        cls.first, cls.second = cls.folder / "first", pathlib.Path(shared.name) / "second"
        cls.pack(cls.first, 0o022, "UTC")
        cls.pack(cls.second, 0o077, "Pacific/Chatham")
        cls.debs = {name: path for name in NAMES for path in cls.first.glob(f"{name}_*.deb")}
        cls.root = cls.folder / "root"
        for deb in cls.debs.values():
            output_of("dpkg-deb", "-x", deb, cls.root)

    @classmethod
    def pack(cls, folder, umask, zone):
        done = subprocess.run([CPACK, "--config", BUILD / "CPackConfig.cmake", "-B", folder],
                              cwd=cls.folder, env={**os.environ, "TZ": zone}, umask=umask,
                              capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise AssertionError(done.stdout + done.stderr)

    def field(self, name, field):
        return output_of("dpkg-deb", "-f", self.debs[name], field).strip()

    def files(self, name):
        lines = output_of("dpkg-deb", "-c", self.debs[name]).splitlines()
        return {line.split(None, 5)[5].lstrip("."): line.split()[:2] for line in lines}

    def binaries(self):
        return [self.root / "usr/bin/widen",
                *self.root.glob("usr/lib/vst/Trelvan.vst/Contents/*/Trelvan.so"),
                *self.root.glob("usr/lib/lv2/trelvan.lv2/*/trelvan.so")]

    def test_are_four_of_this_version(self):
        self.assertEqual(set(self.debs), set(NAMES))
        for name in NAMES:
            self.assertEqual(self.field(name, "Version"), f"{VERSION}-1")
        self.assertEqual(self.field("trelvan-doc", "Architecture"), "all")

    def test_are_the_same_bytes_whoever_makes_them(self):
        names = sorted(path.name for path in self.first.iterdir()
                       if path.name.endswith((".deb", ".tar.gz")))
        self.assertEqual(len(names), len(NAMES) + 1)
        for name in names:
            self.assertEqual((self.first / name).read_bytes(), (self.second / name).read_bytes(),
                             name)

    def test_ask_for_what_they_load_and_for_what_helps(self):
        for name, library in (("trelvan-vst", "libxkbcommon-x11-0"),
                              ("trelvan-lv2", "libxkbcommon-x11-0"), ("widen", "libsndfile1")):
            self.assertIn(library, self.field(name, "Depends"))
        for name in ("trelvan-vst", "trelvan-lv2"):
            self.assertEqual(self.field(name, "Recommends"), "zenity | kdialog, xdg-utils")
        self.assertEqual(self.field("widen", "Recommends"), "trelvan-vst")
        self.assertEqual(self.field("trelvan-doc", "Depends"), "")

    def test_are_not_made_where_nothing_tells_what_they_load(self):
        done = subprocess.run([CPACK, "--config", BUILD / "CPackConfig.cmake", "-G", "DEB",
                               "-B", self.folder / "none", "-D", "CMAKE_IGNORE_PATH=/usr/bin;/bin"],
                              cwd=self.folder, capture_output=True, text=True, check=False)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("dpkg-shlibdeps is missing", done.stdout + done.stderr)

    def test_have_each_file_once_and_of_root(self):
        seen = {}
        for name in NAMES:
            for file, (mode, owner) in self.files(name).items():
                self.assertEqual(owner, "root/root", file)
                self.assertRegex(mode, r"^(drwxr-xr-x|-rwxr-xr-x|-rw-r--r--)$", file)
                if not file.endswith("/"):
                    self.assertNotIn(file, seen)
                    seen[file] = name
        for file, name in (("/usr/bin/widen", "widen"),
                           ("/usr/share/man/man1/widen.1.gz", "widen"),
                           ("/usr/share/man/man7/trelvan.7.gz", "trelvan-vst"),
                           ("/usr/share/trelvan/presets/mix 1.orv", "trelvan-vst"),
                           ("/usr/share/doc/trelvan/Trelvan Operation Manual.pdf", "trelvan-doc"),
                           ("/usr/share/doc/trelvan/Trelvan Operation Manual.html",
                            "trelvan-doc")):
            self.assertEqual(seen.get(file), name, file)
        self.assertFalse([file for file in seen if "installed" in file or ".new" in file])

    def test_have_the_licences_of_all_that_is_in_them(self):
        notices = (BUILD / "Trelvan.vst/Contents/Resources/NOTICES.txt").read_text()
        for name in NAMES:
            text = (self.root / f"usr/share/doc/{name}/copyright").read_text()
            self.assertIn(notices, text)
            self.assertIn((SOURCE / "LICENSE").read_text(), text)

    # FEATURES.md leads into the source too.
    def test_have_documents_whose_links_lead_somewhere(self):
        documents = list(self.root.glob("usr/share/doc/trelvan/docs/*.md"))
        self.assertGreater(len(documents), 5)
        for document in documents:
            for link in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", document.read_text()):
                self.assertTrue((document.parent / link).exists(), f"{document.name}: {link}")

    def test_are_stripped_and_guarded_and_know_no_folder_of_the_build(self):
        for binary in self.binaries():
            sections = output_of("readelf", "-SW", binary)
            self.assertNotIn(".symtab", sections)
            self.assertNotIn(".debug", sections)
            self.assertIn("BIND_NOW", output_of("readelf", "-dW", binary))
            self.assertIn("GNU_RELRO", output_of("readelf", "-lW", binary))
            symbols = output_of("readelf", "--dyn-syms", "-W", binary)
            self.assertIn("__stack_chk_fail", symbols)
            self.assertRegex(symbols, r"__\w+_chk\b(?<!stack_chk)")
            content = binary.read_bytes()
            for folder in (SOURCE, BUILD, SOURCE.parent):
                self.assertNotIn(f"{folder}/".encode(), content)
        self.assertEqual(len(self.binaries()), 3)

    def test_say_which_manual_pages_have_tables(self):
        pages = [gzip.decompress(path.read_bytes()).decode()
                 for path in self.root.glob("usr/share/man/man*/*.gz")]
        with_tables = [page for page in pages if "\n.TS\n" in page]
        self.assertTrue(with_tables)
        for page in with_tables:
            self.assertEqual(page.partition("\n")[0], "'\\\" t")

    def test_suit_lintian(self):
        # It leaves some of its temporary files.
        said = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning",
                               *self.debs.values()], capture_output=True, text=True, check=False,
                              env={**os.environ, "TMPDIR": str(self.folder)})
        self.assertEqual((said.returncode, said.stdout), (0, ""), said.stderr)

    def test_have_a_tarball_that_works_wherever_it_is(self):
        tarball, = self.first.glob("*.tar.gz")
        for place in ("here", "moved to here"):
            with tarfile.open(tarball) as archive:
                archive.extractall(self.folder / place)
                self.assertEqual({member.name.split("/")[0] for member in archive},
                                 {tarball.name.removesuffix(".tar.gz")})
        widen, = (self.folder / "moved to here").glob("*/bin/widen")
        environment = {**os.environ, "HOME": str(self.folder), "VST_PATH": "/nowhere"}
        told = subprocess.run([widen, "--info"], env=environment, capture_output=True, text=True,
                              check=True).stdout
        self.assertIn(str(widen.parent.parent / "lib/vst/Trelvan.vst"), told)


unittest.main(argv=sys.argv[:1])
