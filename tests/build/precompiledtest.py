#!/usr/bin/env python3
"""precompiledtest.py SOURCE BUILD: sources of the tests find GoogleTest already read, those too
that include it by a header of the tests. To read it takes a compiler longer than most of them.
tests/mac does without, for it enables another compiler (its CMakeLists.txt)."""
import json
import pathlib
import re
import sys

SOURCE, BUILD = map(pathlib.Path, sys.argv[1:3])
TESTED = re.compile(r"^TEST(?:_F|_P)?\(", re.M)


def is_test(command):
    path = pathlib.Path(command["file"])
    return (path.is_relative_to(SOURCE / "tests") and path.suffix == ".cpp"
            and " -o tests/mac/" not in command["command"] and TESTED.search(path.read_text()))


tests = list(filter(is_test, json.loads((BUILD / "compile_commands.json").read_text())))
alone = sorted(command["file"] for command in tests if "cmake_pch" not in command["command"])
print(f"{len(tests)} sources, {len(alone)} of them read it each", *alone, sep="\n")
sys.exit(1 if alone or not tests else 0)
