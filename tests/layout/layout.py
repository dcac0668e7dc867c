"""Checks a source tree against the table of rooms in its CONTRIBUTING.md.

A row of that table names a room and what it may include in its last column: "the rooms above" are
all rows above it, a path in backticks is that folder or file, "the toolkit" is VSTGUI,
"everything" is everything.
"""
import pathlib
import re

SOURCES = {".h", ".c", ".cpp", ".m", ".mm"}
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*["<]([^">]+)[">]')
SYSTEM = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*\b(?:"
                    r"__APPLE__|__MACH__|__?linux(?:__)?|__gnu_linux__|__unix__|"
                    r"_?WIN(?:32|64)|MAC|LINUX|WINDOWS|TARGET_OS_\w+)\b")
TESTED = re.compile(r"\b(?:TEST(?:_F|_P)?|(?:EXPECT|ASSERT)_\w+)\(|\btesting::")
GOOGLETEST = re.compile(r"^#include <g(?:test|mock)/", re.M)
TOOLKIT = re.compile(r"^(?:vstgui\.h|lib/|vstgui/)")


def rooms_of(contributing):
    """The table's rows in order: room -> what it may include.

    That is prefixes of paths ("" for all), and "toolkit".
    """
    rooms = {}
    for line in contributing.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        is_row = line.startswith("|") and len(cells) == 4
        names = re.findall(r"`([\w/]+/)`", cells[1]) if is_row else []
        may = set(re.findall(r"`([^`]+)`", cells[-1]))
        may |= set(rooms) if "the rooms above" in cells[-1] else set()
        may |= {"toolkit"} if "the toolkit" in cells[-1] else set()
        may |= {"", "toolkit"} if "everything" in cells[-1] else set()
        for name in names:
            rooms[name] = may
    return rooms


class Tree:
    """All sources below the table's top folders, and what is wrong with them."""

    def __init__(self, root):
        self.rooms = rooms_of((root / "CONTRIBUTING.md").read_text())
        tops = {room.split("/")[0] for room in self.rooms}
        paths = (path for top in tops for path in (root / top).rglob("*") if path.suffix in SOURCES)
        self.texts = {str(path.relative_to(root)): path.read_text() for path in sorted(paths)}
        self.includes = {path: self._includes(path) for path in self.texts}

    def room(self, path):
        return max((room for room in self.rooms if path.startswith(room)), key=len, default="")

    def _includes(self, path):
        """(line, target) of each include.

        A source of this tree goes by its path, the toolkit's header by its name; others are left
        out.
        """
        tops = tuple(room.split("/")[0] + "/" for room in self.rooms)
        for number, line in enumerate(self.texts[path].splitlines(), 1):
            if not (match := INCLUDE.match(line)):
                continue
            name = match[1]
            parts = []
            for part in (path.rsplit("/", 1)[0] + "/" + name).split("/"):
                parts = parts[:-1] if part == ".." else parts + [part]
            beside = "/".join(parts)
            target = beside if name not in self.texts and beside in self.texts else name
            if target in self.texts or name.startswith(tops) or TOOLKIT.match(name):
                yield number, target

    def violations(self):
        self.includes = {path: list(found) for path, found in self.includes.items()}
        for path, text in self.texts.items():
            found = [(1, what) for what in self._whole(path, text)] + list(self._lines(path, text))
            yield from (f"{path}:{number}: {what}" for number, what in sorted(found))
        yield from self._cycles()

    def _whole(self, path, text):
        opening = re.match(r"(?://.*\n)*", text)[0]
        if not re.search(r"\w.*[.!?]\n$", opening):
            yield "does not open with a comment that says in a sentence what the file is"
        if not self.room(path):
            yield "is in no room"
        own_header = path.rsplit(".", 1)[0] + ".h"
        named = [target for file in {path, own_header} & set(self.texts)
                 for _, target in self._includes(file)]
        if ("VSTGUI::" in text and "namespace VSTGUI {" not in text
                and not any(map(TOOLKIT.match, named))):
            yield "names the toolkit and includes nothing of it"
        # The compiler would not see it: what is precompiled is there without an include.
        if TESTED.search(text) and not any(GOOGLETEST.search(self.texts[file])
                                           for file in self._reached(path)):
            yield "names GoogleTest and includes nothing of it"

    def _reached(self, path):
        """The file and all of this tree that it includes, by whatever way."""
        reached, left = set(), [path]
        while left:
            file = left.pop()
            if file in self.texts and file not in reached:
                reached.add(file)
                left += [target for _, target in self.includes[file]]
        return reached

    def _lines(self, path, text):
        room = self.room(path)
        may = self.rooms.get(room, set())
        for number, target in self.includes[path]:
            if target not in self.texts and not TOOLKIT.match(target):
                yield number, f"includes {target}, which is not there"
            elif (TOOLKIT.match(target) and "toolkit" not in may
                  or not TOOLKIT.match(target) and not (
                      self.room(target) == room or "" in may or self.room(target) in may
                      or any(target == one or one.endswith("/") and target.startswith(one)
                             for one in may))):
                yield number, f"may not include {target}"
        if not {"linux", "mac"} & set(path.split("/")[:-1]):
            for number, line in enumerate(text.splitlines(), 1):
                if SYSTEM.match(line):
                    yield number, "asks for the operating system"

    def _cycles(self):
        """Depth first.

        A file met again on the way back to itself closes a cycle, which is told once.
        """
        done, way = set(), []

        def follow(path):
            if path in way:
                cycle = way[way.index(path):] + [path]
                yield f"{path}:1: is in a cycle of includes: " + " -> ".join(cycle)
            elif path not in done and path in self.texts:
                done.add(path)
                way.append(path)
                for _, target in self.includes[path]:
                    yield from follow(target)
                way.pop()

        for path in self.texts:
            yield from follow(path)


def violations(root):
    return list(Tree(pathlib.Path(root)).violations())
