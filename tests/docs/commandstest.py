"""Tests that what the documents tell people to type to widen does what it should: each command is
run by a shell in a folder with the files that it names."""
import array
import math
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import wave

from commands import commands

ROOT, WIDEN, SPACE = map(pathlib.Path, sys.argv[1:4])  # widen stands beside the plug-in
DOCUMENTS = {"README.md": "md", "docs/widen.md": "md", "docs/validator.md": "md",
             "docs/manual/manual.rst": "rst"}
# They build, and install what is missing.
BUILDS = re.compile(r"\./run(?: --(?:un)?install.*)?$")
SOUNDS = ("guitar voice drums in take guit_e_slide bass_woodsy_c takes/a takes/b mixes/a mixes/b "
          "session/day1/a monday/a tuesday/a").split()
# What stands before and after widen in pipelines is none of its business: these take a sound and
# give one, and jq wants one document of JSON.
STAND_INS = {
    "arecord": 'cat in.wav', "aplay": 'cat >/dev/null',
    "sox": '[ "$1" = -p ] && exec cat; cat "$1"', "flac": 'cat "$2"',
    "ffmpeg": 'cat >"${!#}"', "jq": f'exec {sys.executable} -c "import json, sys; '
                                    'print(json.load(sys.stdin) and 1)"',
}


def found(document):
    text = (ROOT / document).read_text()
    for command in commands(text, DOCUMENTS[document], ("widen", "./run")):
        if not BUILDS.match(command):
            yield command


class Folder:
    """A home and a working folder with everything that the documents' examples begin with."""

    def __init__(self):
        self.path = pathlib.Path(tempfile.mkdtemp())
        self.work, self.tools = self.path / "work", self.path / "bin"
        self.environment = {**os.environ, "HOME": str(self.path), "PATH":
                            f"{self.tools}:/usr/bin:/bin", "XDG_CONFIG_HOME": str(self.path)}
        self.environment.pop("DISPLAY", None)
        for folder in (self.tools, self.path / ".vst", self.work):
            folder.mkdir()
        for name, script in STAND_INS.items():
            self._program(self.tools / name, script)
        for program in (self.work / "run", self.tools / "widen"):
            program.symlink_to(WIDEN)
        for name in SOUNDS:
            self._sound(self.work / name)
        for module in (self.work / "space.so", self.path / ".vst/Other.so"):
            shutil.copy(SPACE, module)
        self.run("widen --preset 1 --save-preset mine.orv")

    @staticmethod
    def _program(path, script):
        path.write_text(f"#!/bin/bash\n{script}\n")
        path.chmod(0o755)

    @staticmethod
    def _sound(path):
        """As WAV, and under the name of a FLAC file, whose content tells what it is."""
        path.parent.mkdir(parents=True, exist_ok=True)
        tone = array.array("h", (round(9000 * math.sin(n / 20)) for n in range(9000)))
        with wave.open(f"{path}.wav", "wb") as file:
            file.setparams((1, 2, 44100, 0, "NONE", ""))
            file.writeframes(tone.tobytes())
        if path.parent.name == "work":
            shutil.copy(f"{path}.wav", f"{path}.flac")

    def run(self, command, shell="bash"):
        setting = "set -o pipefail; " if shell == "bash" else ""
        return subprocess.run([shell, "-c", setting + command], cwd=self.work, text=True,
                              env=self.environment, stdin=subprocess.DEVNULL, check=False,
                              capture_output=True, errors="replace")

    def remove(self):
        shutil.rmtree(self.path)


def results_of(command):
    """Files and folders that it says it makes."""
    return [word for word in re.findall(r"(?:-o|--plot|--save-\w+) (\S+)", command) if word != "-"]


class Commands(unittest.TestCase):
    def check(self, command):
        folder = Folder()
        self.addCleanup(folder.remove)
        if "--validate" in command:  # all of its checks take minutes, and have tests of their own
            command += " --check 'its record fits together'"
        for result in results_of(command):
            (folder.work / result).unlink(missing_ok=True)
        done = folder.run(command, "fish" if command.endswith("| source") else "bash")
        if "--editor" in command:  # as far as it gets without a screen
            self.assertIn("no display", done.stderr)
            return
        self.assertEqual(done.returncode, 0, done.stderr)
        for result in results_of(command):
            self.assertTrue((folder.work / result).exists(), result)

    def test_do_what_the_documents_say(self):
        for document in DOCUMENTS:
            for command in found(document):
                with self.subTest(document, command=command):
                    self.check(command)

    def test_are_found(self):
        for document, command in (
                ("README.md", "./run --list-presets"),
                ("README.md", "sox voice.wav -t wav - | ./run - -o - | aplay"),
                ("docs/widen.md", 'widen guitar.wav -o wide.wav --preset "guitar 1"'),
                ("docs/widen.md", 'arecord -f S16_LE -c 2 -r 48000 | widen - -o - --preset "mix 1"'
                                  ' | aplay'),
                ("docs/validator.md", "widen --validate --strictness 10"),
                ("docs/manual/manual.rst", "widen takes/*.wav -o widened/ --preset mine.orv -j 2")):
            self.assertIn(command, list(found(document)))

    def test_that_fail_are_seen(self):
        for command in ("widen gone.wav -o wide.wav", "widen in.wav -o wide.wav --widht 75%",
                        "widen gone.wav -o - | aplay", 'widen in.wav -o w.wav --preset "guitar 9"'):
            with self.assertRaises(AssertionError, msg=command):
                self.check(command)


unittest.main(argv=sys.argv[:1])
