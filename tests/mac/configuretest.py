#!/usr/bin/env python3
"""configuretest.py SOURCE BUILD TOOLKIT [OPTION...]: CMake's branch for a Mac, configured and
generated here as a whole, with widen and its tests: with the toolkit's own CMakeLists.txt and the
transform that is fetched where no package has it.

One small file is compiled. The libraries that CMake finds are this machine's; nothing is linked
with them.
"""
import glob
import json
import os
import shlex
import shutil
import stat
import subprocess
import sys

# Stands in for the transform's sources, which are fetched from upstream: the names that widen
# uses, and a warning.
TRANSFORM = {
    "kiss_fft.h": "#pragma once\n#ifndef kiss_fft_scalar\n#error no type\n#endif\n"
                  "typedef struct { kiss_fft_scalar r, i; } kiss_fft_cpx;\n",
    "kiss_fftr.h": '#pragma once\n#include "kiss_fft.h"\n#include <stddef.h>\n#include <stdlib.h>\n'
                   "typedef struct state* kiss_fftr_cfg;\n"
                   "#ifdef __cplusplus\nextern \"C\" {\n#endif\n"
                   "kiss_fftr_cfg kiss_fftr_alloc(int, int, void*, size_t*);\n"
                   "void kiss_fftr(kiss_fftr_cfg, const kiss_fft_scalar*, kiss_fft_cpx*);\n"
                   "#ifdef __cplusplus\n}\n#endif\n#define kiss_fftr_free free\n",
    "kiss_fft.c": '#include "kiss_fft.h"\nstatic int unused(int x) { x; return 0; }\n',
    "kiss_fftr.c": '#include "kiss_fftr.h"\n',
    "CMakeLists.txt": 'message(FATAL_ERROR "the transform\'s own build is not wanted")\n',
}
# This machine's pkg-config, but for what Homebrew has not.
PKG_CONFIG = '#!/bin/sh\ncase "$*" in *kissfft*) exit 1 ;; esac\nexec pkg-config "$@"\n'

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


def write(folder, name, text):
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
        file.write(text)
    return os.path.join(folder, name)


def configure(source, build, toolkit, options):
    shutil.rmtree(build, ignore_errors=True)
    transform = os.path.join(build, "transform")
    for name, text in TRANSFORM.items():
        write(transform, name, text)
    pkg_config = write(build, "pkg-config", PKG_CONFIG)
    os.chmod(pkg_config, stat.S_IRWXU)
    run("cmake", "-S", source, "-B", build, "-G", "Ninja",
        "--toolchain", os.path.join(source, "tests/mac/macho/toolchain.cmake"),
        "-DCMAKE_HOST_APPLE=1",  # the toolkit's list of sources follows it
        "-DCMAKE_HAVE_LIBC_PTHREAD=1",  # so it is on a Mac, and here nothing is linked to find out
        "-DTRELVAN_CODESIGN=" + shutil.which("true"), "-DPKG_CONFIG_EXECUTABLE=" + pkg_config,
        # Both are fetched on a Mac.
        "-DFETCHCONTENT_SOURCE_DIR_KISSFFT=" + transform,
        "-DFETCHCONTENT_SOURCE_DIR_VSTGUI=" + toolkit,
        "-DTRELVAN_TOOLKIT_SOURCE=" + os.path.join(build, "none"),
        "-DCMAKE_BUILD_TYPE=Release", "-DTRELVAN_TESTS=ON", "-DTRELVAN_BENCHMARKS=OFF", *options)


def commands(build):
    """How each source is compiled, by its path."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        return {entry["file"]: shlex.split(entry["command"]) for entry in json.load(file)}


def objective(sources, folder):
    return [words for path, words in sources.items()
            if path.startswith(folder + os.sep) and path.endswith(".mm")]


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

    spectrum = os.path.join(source, "host/plot/spectrum.cpp")
    transform = os.path.join(build, "transform")
    for path in (spectrum, os.path.join(transform, "kiss_fft.c"),
                 os.path.join(transform, "kiss_fftr.c")):
        words = sources.get(path, [])
        name = os.path.basename(path)
        expect(words.count("-arch") == 1, f"{name} is compiled for the machine's own processor")
        expect("-Dkiss_fft_scalar=float" in words, f"{name} has the transform in single precision")
    expect(f"-isystem {transform} " in " ".join(sources[spectrum]),
           "spectrum.cpp finds the transform's header")
    run(*sources[os.path.join(transform, "kiss_fft.c")], "-fsyntax-only", "-Werror")
    print("ok    a warning in the transform is none of ours")
    print(f"{len(failures)} wrong")
    return 1 if failures else 0


sys.exit(main())
