#!/usr/bin/env python3
"""mutants.py [--folder FOLDER] [WORD...]: plants faults in the macOS sources, one at a time, and
shows that the tests fail.
mutants.py --check BUILD: only looks whether it could, with the programs of a build folder; takes a
second.

It works on a copy of the sources in a temporary folder and builds that first, which takes some
minutes; then a fault takes five to twenty seconds. FOLDER is kept for the next time. With words it
plants only the faults of these kinds (cf, path, widen, toolkit, cocoa, macho, sign, configure) or
with one of them in their description. First comes a run without a fault, which passes.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

from mutantlist import MUTANTS

ROOT = os.path.abspath(os.path.join(os.path.dirname(__file__), "../.."))
FOLDERS = ("cmake", "docs", "editor", "effect", "host", "platform", "plugin", "presetsystem",
           "resources", "tests", "tools")
TIME = 45  # seconds that a test may take; one that hangs has failed

# Program for each kind of test, and what it loads.
PROGRAMS = {"cf": "maccftest", "path": "macpathtest", "toolkit": "mactoolkittest",
            "cocoa": "maccocoatest", "widen": "macwidentest"}
LOADED = {"path": ["macbundle_One", "macbundle_Two_u"]}
# And those that are scripts, which take the sources, a build folder and the toolkit.
SCRIPTS = {"macho": "macho/machocheck.sh", "sign": "signature.sh", "configure": "configuretest.py"}


def run(command, cwd, seconds, **environment):
    try:
        done = subprocess.run(command, cwd=cwd, env={**os.environ, **environment}, timeout=seconds,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              errors="replace")
        return done.returncode, done.stdout
    except subprocess.TimeoutExpired:
        return "too late", ""


def programs(kind, source, build):
    """What runs one kind of tests, in the order of the command line, and the folder it works in."""
    if kind in SCRIPTS:
        return [os.path.join(source, "tests/mac", SCRIPTS[kind])], source
    binary = os.path.join(build, "tests/mac/bin", PROGRAMS[kind])
    if kind == "cocoa":
        return [os.path.join(source, "tests/mac/withgnustep.sh"), binary], build
    return [binary], os.path.join(build, "tests/mac/runs", PROGRAMS[kind])


class Copy:
    """The sources, their build folder, and how the tests are run there."""

    def __init__(self, folder):
        self.source = os.path.join(folder, "source")
        self.build = os.path.join(folder, "build")
        shutil.rmtree(self.source, ignore_errors=True)
        os.makedirs(self.source)
        # With their times, so that a build folder that is there already stays of use.
        for name in FOLDERS:
            shutil.copytree(os.path.join(ROOT, name), os.path.join(self.source, name))
        for mutant in MUTANTS:  # built anew: what lies there may be from a fault of the last time
            os.utime(os.path.join(self.source, mutant.file))
        # The rooms that this needs, and no others.
        shutil.copy(os.path.join(ROOT, "CMakeLists.txt"), self.source)
        lines = self.read("CMakeLists.txt")
        if "add_subdirectory(bench)" not in lines:
            sys.exit("CMakeLists.txt: no room bench to leave out")
        lines = lines.replace("add_subdirectory(bench)", "")
        self.write("CMakeLists.txt", lines)
        rooms = self.read("tests/CMakeLists.txt")
        begin = rooms.index("foreach(room")
        end = rooms.index(")", begin) + 1
        self.write("tests/CMakeLists.txt", rooms[:begin] + "foreach(room mac)" + rooms[end:])
        self.toolkit = os.path.join(ROOT, ".deps/vstgui-4.13.3")

    def read(self, name):
        with open(os.path.join(self.source, name), encoding="utf-8") as file:
            return file.read()

    def write(self, name, text):
        with open(os.path.join(self.source, name), "w", encoding="utf-8") as file:
            file.write(text)

    def configure(self):
        launcher = shutil.which("ccache")
        options = [f"-DCMAKE_{language}_COMPILER_LAUNCHER={launcher}"
                   for language in ("CXX", "OBJCXX") if launcher]
        code, output = run(["cmake", "-S", self.source, "-B", self.build, "-G", "Ninja",
                            "-DCMAKE_BUILD_TYPE=Release", "-DTRELVAN_TESTS=ON",
                            f"-DTRELVAN_TOOLKIT_SOURCE={self.toolkit}", *options],
                           self.source, 300)
        if code != 0:
            sys.exit(output)

    def compile(self, *targets):
        return run(["cmake", "--build", self.build, "--parallel", "2", "--target", *targets],
                   self.source, 1800)

    def passes(self, kind, chosen):
        """What the tests of one kind say: (passed, output). None: the fault does not compile."""
        command, folder = programs(kind, self.source, self.build)
        if kind == "sign":  # works on what that leaves
            passed, output = self.passes("macho", chosen)
            if not passed:
                return None, output
        if kind in SCRIPTS:
            build = os.path.join(self.build, "tests/mac", "macho" if kind == "sign" else kind)
            options = []
            if kind == "configure":  # where this machine has GoogleTest
                options = ["-DCMAKE_LIBRARY_ARCHITECTURE="
                           + run(["gcc", "-print-multiarch"], folder, 60)[1].strip()]
            code, output = run([*command, self.source, build, self.toolkit, *options], folder, 1800)
            return code == 0, output
        code, output = self.compile(PROGRAMS[kind], *LOADED.get(kind, []))
        if code != 0:
            return None, output  # which shows nothing
        code, output = run(command, folder, TIME, GTEST_FILTER=chosen)
        return code == 0, output


def reason(output):
    """One line that says what was seen."""
    lines = output.splitlines()
    for word in ("[  FAILED  ]", "WRONG", "error:", "double:"):
        found = [line.strip() for line in lines if word in line]
        if found:
            return found[0][:100]
    return lines[-1][:100] if lines else "it hung"


def places(mutant, text):
    """What is wrong with the place of a fault; nothing where it is found once."""
    count = text.count(mutant.old)
    if count == 1:
        return ""
    return f"{mutant.what}: {count} places in {mutant.file} for {mutant.old!r}"


def check(build):
    """Whether every fault has its place, and every program that looks for one is there.

    The programs are looked for in the build folder.
    """
    with tempfile.TemporaryDirectory(prefix="mutants") as folder:
        copy = Copy(folder)  # as it would be built
        wrong = [places(mutant, copy.read(mutant.file)) for mutant in MUTANTS]
    listing = run(["cmake", "--build", build, "--target", "help"], build, 60)[1]
    targets = listing.replace(":", " ").split()
    for kind in sorted({mutant.kind for mutant in MUTANTS}):
        command, work = programs(kind, ROOT, build)
        wrong += [f"{kind}: {path} cannot be run" for path in command
                  if not os.access(path, os.X_OK)]
        wrong += [] if os.path.isdir(work) else [f"{kind}: no folder {work} to work in"]
        names = [PROGRAMS[kind], *LOADED.get(kind, [])] if kind in PROGRAMS else []
        wrong += [f"{kind}: no target {name}" for name in names if name not in targets]
    wrong = [line for line in wrong if line]
    print("\n".join([*wrong, f"{len(MUTANTS)} faults looked at, {len(wrong)} wrong"]))
    return 1 if wrong else 0


def main():
    words = sys.argv[1:]
    if words[:1] == ["--check"] and len(words) == 2:
        return check(os.path.abspath(words[1]))
    kept = words[1] if words[:1] == ["--folder"] else None
    words = words[2:] if kept else words
    chosen = [mutant for mutant in MUTANTS
              if not words or mutant.kind in words or any(word in mutant.what for word in words)]
    folder = kept or tempfile.mkdtemp(prefix="mutants")
    survivors = []
    caught = 0
    try:
        copy = Copy(folder)
        copy.configure()
        for kind, tests in sorted({(mutant.kind, mutant.tests) for mutant in chosen}):
            passed, output = copy.passes(kind, tests)
            if not passed:
                sys.exit(f"without a fault the tests fail: {kind} {tests}\n{output[-3000:]}")
        print(f"without a fault everything passes; {len(chosen)} faults follow", flush=True)
        for mutant in chosen:
            begin = time.monotonic()
            whole = copy.read(mutant.file)
            if places(mutant, whole):
                sys.exit(places(mutant, whole))
            copy.write(mutant.file, whole.replace(mutant.old, mutant.new))
            passed, output = copy.passes(mutant.kind, mutant.tests)
            copy.write(mutant.file, whole)
            if passed and not mutant.hidden:
                survivors.append(mutant.what)
            seen = (mutant.hidden or "SURVIVES") if passed else "caught    " + reason(output)
            if passed is None:
                seen = "DOES NOT COMPILE  " + reason(output)
                survivors.append(mutant.what)
            caught += passed is False
            seconds = time.monotonic() - begin
            print(f"{seconds:5.1f} s  {mutant.kind:8} {mutant.what}: {seen}", flush=True)
    finally:
        if not kept:
            shutil.rmtree(folder)
    print(f"{caught} of {len(chosen)} faults caught; not caught, without a reason: {survivors}")
    return 1 if survivors else 0


if __name__ == "__main__":
    sys.exit(main())
