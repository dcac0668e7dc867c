#!/usr/bin/env python3
"""configuretest.py SOURCE BUILD TOOLKIT [OPTION...]: CMake's branch for a Mac, configured and
generated here as a whole, with widen and its tests: with the toolkit's own CMakeLists.txt.

The libraries that CMake finds are this machine's; nothing is linked with them.
"""
import glob
import json
import os
import re
import shlex
import shutil
import subprocess
import sys

failures = []


def expect(condition, what):
    print(("ok    " if condition else "WRONG ") + what)
    if not condition:
        failures.append(what)


def run(*command):
    """Runs it; shows what it printed where it fails, and ends there."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace")
    if done.returncode != 0:
        sys.exit(done.stdout + "WRONG " + " ".join(command[:4])
                 + f" ... ends with {done.returncode}")


def configure(source, build, toolkit, options):
    shutil.rmtree(build, ignore_errors=True)
    os.environ["TMPDIR"] = os.path.abspath(f"{build}/temporary")  # as in machocheck.sh
    os.makedirs(os.environ["TMPDIR"])
    run("cmake", "-S", source, "-B", build, "-G", "Ninja",
        "--toolchain", os.path.join(source, "tests/mac/macho/toolchain.cmake"),
        "-DCMAKE_HOST_APPLE=1",  # the toolkit's list of sources follows it
        "-DCMAKE_HAVE_LIBC_PTHREAD=1",  # so it is on a Mac, and here nothing is linked to find out
        "-DTRELVAN_CODESIGN=" + shutil.which("true"),
        # It is fetched on a Mac.
        "-DFETCHCONTENT_SOURCE_DIR_VSTGUI=" + toolkit,
        "-DTRELVAN_TOOLKIT_SOURCE=" + os.path.join(build, "none"),
        "-DCMAKE_BUILD_TYPE=Release", "-DTRELVAN_TESTS=ON", "-DTRELVAN_BENCHMARKS=ON", *options)


def commands(build):
    """How each source is compiled first, by its path: tests may compile it once more."""
    sources = {}
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        for entry in json.load(file):
            sources.setdefault(entry["file"], shlex.split(entry["command"]))
    return sources


def objective(sources, folder):
    return [words for path, words in sources.items()
            if path.startswith(folder + os.sep) and path.endswith(".mm")]


# The toolkit's own definitions that no class of the parts that are used depends on.
THEIRS_ALONE = {"VSTGUI_ENABLE_XML_PARSER=0", "VSTGUI_USE_SYSTEM_EXPAT"}


def definitions(words):
    return {word[2:] for word in words if word.startswith("-DVSTGUI")} - THEIRS_ALONE


def main():
    source, build, toolkit = sys.argv[1:4]
    configure(source, build, toolkit, sys.argv[4:])
    sources = commands(build)
    ours = [words for room in ("editor", "platform")
            for words in objective(sources, os.path.join(source, room))]
    theirs = objective(sources, os.path.join(toolkit, "vstgui"))
    expect(len(theirs) > 10 and all("objective-c++" in words for words in theirs),
           f"{len(theirs)} sources of the toolkit are compiled as Objective-C++")
    expect(all("-std=c++17" in words for words in theirs),
           "the toolkit keeps its own language level")
    there = [path for room in ("editor", "platform")
             for path in glob.glob(os.path.join(source, room, "**/mac/*.mm"), recursive=True)]
    expect(0 < len(there) == len(ours) and all("objective-c++" in words for words in ours),
           f"all {len(there)} of ours are compiled as Objective-C++")
    for option in ("-std=c++20", "-fno-objc-arc", "-fvisibility=hidden"):
        expect(all(option in words for words in ours), f"all of ours with {option}")

    window = sources[os.path.join(source, "editor/window/adeditor.cpp")]
    expect(definitions(window) and definitions(theirs[0]) == definitions(window),
           f"the toolkit's classes are laid out alike there and here: {definitions(window)}")
    identifier = next((word for word in ours[0] if "TRELVAN_CLASS_SUFFIX" in word), "")
    expect(re.search(r"_\d+_\d+_\d+", identifier), f"classes' names have a version: {identifier}")

    expect(not any(path.startswith(os.path.join(source, "bench") + os.sep) for path in sources),
           "no benchmark is built, though the preset asks for them")
    words = sources.get(os.path.join(source, "host/plot/spectrum.cpp"), [])
    expect(words.count("-arch") == 1, "widen is compiled for the machine's own processor")
    window = sources.get(os.path.join(source, "host/vst/mac/plainwindow.mm"), [])
    expect("-fno-objc-arc" in window, "so is its window, with its references counted by itself")
    with open(os.path.join(build, "CPackConfig.cmake"), encoding="utf-8") as file:
        shown = re.findall(r'CPACK_RESOURCE_FILE_\w+ "(.*)"', file.read())
    expect(shown and all(path.endswith((".txt", ".rtf", ".html")) for path in shown),
           "what the pkg shows are files that its maker takes")
    print(f"{len(failures)} wrong")
    return 1 if failures else 0


sys.exit(main())
