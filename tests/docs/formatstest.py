"""Tests that docs/formats.md is enough: states are read and files are written by its tables alone,
and widen, which drives the plug-in, has to agree."""
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT, WIDEN, PLUGIN = sys.argv[1:4]
TEXT = (pathlib.Path(ROOT) / "docs/formats.md").read_text()
ORDERS = {"least significant first": "<", "most significant first": ">"}


def table(heading):
    """The fields of the table below a heading: (offset, name, type, how many)."""
    section = TEXT.split(f"\n### {heading}\n")[1].split("\n#")[0]
    fields = []
    for at, kind, name in re.findall(r"^\| (\d+) \| ([\w\[\]]+) \| (\w+) \|", section, re.M):
        letter, count = re.fullmatch(r"(\w+?)(?:\[(\d+)\])?", kind).groups()
        fields.append((int(at), name, letter, int(count or 1)))
    return fields


SIZES = {"i32": 4, "f32": 4, "u8": 1, "char": 1}
CODES = {"i32": "i", "f32": "f", "u8": "B"}


def size_of(heading):
    at, _, kind, count = table(heading)[-1]
    return at + SIZES[kind] * count


def read(heading, data, order):
    record = {}
    for at, name, kind, count in table(heading):
        piece = data[at:at + SIZES[kind] * count]
        if kind == "char":
            record[name] = piece.split(b"\0")[0].decode()
        else:
            values = struct.unpack(f"{order}{count}{CODES[kind]}", piece)
            record[name] = values if count > 1 else values[0]
    return record


def written(heading, order, **values):
    data = bytearray(size_of(heading))
    for at, name, kind, count in table(heading):
        value = values.get(name, 0 if count == 1 else (0,) * count)
        if kind == "char":
            data[at:at + count] = value.encode().ljust(count, b"\0")
        else:
            numbers = value if count > 1 else (value,)
            struct.pack_into(f"{order}{count}{CODES[kind]}", data, at, *numbers)
    return bytes(data)


def constant(heading, field):
    section = TEXT.split(f"\n### {heading}\n")[1].split("\n#")[0]
    return int(re.search(rf"\| {field} \| (\w+)", section).group(1), 0)


UNIQUE_ID = constant("Header", "uniqueID")


def presets_in(data, order):
    """From the bytes of a bank or a preset, its header included: names and values, and the selected
    one."""
    header = read("Header", data, order)
    assert header["uniqueID"] == UNIQUE_ID and header["kind"] in (34, 56)
    start = size_of("Header")
    rest = data[start:start + header["dataSize"]]
    presets = {}
    for _ in range(header["entryCount"]):
        head = read("Entry head", rest, order)
        payload = rest[size_of("Entry head"):size_of("Entry head") + head["payloadSize"]]
        rest = rest[size_of("Entry head") + head["payloadSize"]:]
        preset = presets.setdefault(head["preset"], {"name": None, "values": {}})
        if head["kind"] == 0:
            preset["name"] = read("Name payload", payload, order)["name"]
        elif head["kind"] == 1:
            entry = read("Parameter payload", payload, order)
            preset["values"][entry["index"]] = entry["value"]
    assert not rest
    return presets, header["currentPreset"]


def current_file(kind, presets, order, current=0):
    """presets: of (name, values)."""
    entries, count = b"", 0
    for number, (name, values) in enumerate(presets):
        payload = written("Name payload", order, name=name).ljust(156, b"\0")
        entries += written("Entry head", order, kind=0, payloadSize=len(payload), preset=number)
        entries += payload
        for index, value in enumerate(values):
            payload = written("Parameter payload", order, index=index, value=value)
            entries += written("Entry head", order, kind=1, payloadSize=len(payload),
                               preset=number) + payload
        count += 1 + len(values)
    return written("Header", order, uniqueID=UNIQUE_ID, kind=kind, formatVersion=0x01090900,
                   parameterCount=5, entryCount=count, currentPreset=current,
                   dataSize=len(entries)) + entries


def default_preset():
    """Name and values of what an image leaves out."""
    section = TEXT.split("\n### What an image leaves out\n")[1].split("\n#")[0]
    name, *values = re.findall(r"^\| (?!field)\w+ \| (\S+) \|$", section, re.M)
    return name, [float(value) for value in values]


def image_of(kind, *entries):
    """Of (kind, preset, payload) each, in this order."""
    data = b"".join(written("Entry head", "<", kind=entry, payloadSize=len(payload), preset=preset)
                    + payload for entry, preset, payload in entries)
    return written("Header", "<", uniqueID=UNIQUE_ID, kind=kind, entryCount=len(entries),
                   dataSize=len(data)) + data


def old_records(presets, order):
    return b"".join(written("Record", order, name=name, values=values)
                    for name, values in presets)


OWN = [(f"own {number}", (number / 32, 0.25, 1 - number / 32, number % 2, 1 - number % 2))
       for number in range(32)]


class Formats(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = pathlib.Path(self.folder.name)

    def widen(self, *words):
        environment = {**os.environ, "HOME": self.folder.name,
                       "XDG_CONFIG_HOME": self.folder.name}
        done = subprocess.run([WIDEN, "--plugin", PLUGIN, *words], capture_output=True, text=True,
                              cwd=self.folder.name, env=environment, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def file(self, name, data):
        (self.path / name).write_bytes(data)
        return name

    def names(self, *words):
        lines = self.widen(*words, "--list-presets").splitlines()
        self.assertEqual([int(line[1:5]) for line in lines], list(range(32)))
        selected = [int(line[1:5]) for line in lines if line.startswith("*")]
        return [line[6:] for line in lines], selected[0]

    def values(self, *words):
        """Raw values, as the list of parameters has them."""
        lines = self.widen(*words, "--list-params").splitlines()
        return [float(re.match(r" +\d+  \w+ +([\d.]+)", line).group(1)) for line in lines]

    def assert_own(self, *words, presets=OWN):
        names, _ = self.names(*words)
        self.assertEqual(names[:len(presets)], [name for name, _ in presets])
        for number in (0, 1, len(presets) - 1):
            for met, meant in zip(self.values(*words, "--preset", str(number)),
                                  presets[number][1]):
                self.assertAlmostEqual(met, meant, places=5)

    def test_a_state_is_read_by_them(self):
        self.widen("--preset", "guitar 2", "--save-state", "state")
        data = (self.path / "state").read_bytes()
        prefix = read("Chunk prefix", data, "<")
        self.assertEqual(prefix, {"tag": constant("Chunk prefix", "tag"), "uniqueID": UNIQUE_ID})
        presets, current = presets_in(data[size_of("Chunk prefix"):], "<")
        names, selected = self.names("--preset", "guitar 2")
        self.assertEqual([presets[number]["name"] for number in range(32)], names)
        self.assertEqual(current, selected)
        for number in (0, 1, current, 31):
            met = self.values("--preset", str(number))
            for index in range(5):
                self.assertAlmostEqual(presets[number]["values"][index], met[index], places=5)
        self.assertEqual(len(data), 10545)

    def test_files_are_read_by_them(self):
        self.widen("--preset", "guitar 2", "--width", "25%", "--save-preset", "own.orv",
                   "--save-bank", "own.orb")
        names, _ = self.names()
        for name, kind, numbers in (("own.orv", 34, [0]), ("own.orb", 56, range(32))):
            data = (self.path / name).read_bytes()
            self.assertEqual(read("Header", data, "<")["kind"], kind)
            presets, current = presets_in(data, "<")
            self.assertEqual(list(presets), list(numbers))
            preset = presets[names.index("guitar 2") if kind == 56 else 0]
            self.assertEqual(preset["name"], "guitar 2")
            self.assertEqual(preset["values"], dict(enumerate(
                struct.unpack("5f", struct.pack("5f", 0.25, 0.23, 0, 1, 0)))))
            self.assertEqual(current, names.index("guitar 2") if kind == 56 else 0)

    def test_what_an_image_leaves_out_is_the_default(self):
        name, values = default_preset()
        some = written("Parameter payload", "<", index=1, value=0.25)
        file = self.file("some.orv", image_of(34, (1, 0, some)))
        self.assertEqual(self.names("--preset", file)[0][0], name)
        self.assertEqual(self.values("--preset", file), [values[0], 0.25, *values[2:]])
        called = written("Name payload", "<", name="called")
        file = self.file("some.orb", image_of(56, (1, 3, some), (0, 3, called)))
        names, _ = self.names("--bank", file)
        self.assertEqual(names, [*self.names()[0][:3], "called", *self.names()[0][4:]])
        self.assertEqual(self.values("--bank", file, "--preset", "3"), values)
        self.assertEqual(self.values("--bank", file, "--preset", "4"),
                         self.values("--preset", "4"))
        prefix = written("Old file prefix", "<", uniqueID=UNIQUE_ID, kind=33)
        record = written("Record", "<", name="short", values=(0.5,) * 5)[:-8]  # three floats
        self.assertEqual(self.values("--preset", self.file("short.orv", prefix + record)),
                         [0.5, 0.5, 0.5, *values[3:]])

    def test_a_payload_is_taken_as_far_as_its_value_and_no_shorter(self):
        name = written("Name payload", "<", name="a name")
        value = written("Parameter payload", "<", index=0, value=0.75)
        for spare, meant in ((0, ("a name", 0.75)), (-1, ("init", 0)), (100, ("a name", 0.75))):
            entries = [payload[:size + spare] + bytes(max(spare, 0))
                       for payload, size in ((name, 24), (value, 16))]
            file = self.file("cut.orv", image_of(34, (0, 0, entries[0]), (1, 0, entries[1])))
            self.assertEqual((self.names("--preset", file)[0][0],
                              self.values("--preset", file)[0]), meant)

    def test_banks_and_chunks_are_written_by_them_in_both_byte_orders(self):
        for order in ORDERS.values():
            bank = current_file(56, OWN, order, current=7)
            self.assertEqual(len(bank), 10537)
            self.assert_own("--bank", self.file("own.orb", bank))
            prefix = written("Chunk prefix", order, tag=0x02000000, uniqueID=UNIQUE_ID)
            state = self.file("state", prefix + bank)
            self.assert_own("--state", state)
            self.assertEqual(self.names("--state", state)[1], 7)

    def test_a_preset_is_written_by_them(self):
        for order in ORDERS.values():
            preset = current_file(34, [OWN[9]], order)
            self.assertEqual(len(preset), 369)
            met = self.values("--preset", self.file("own.orv", preset))
            for value, meant in zip(met, OWN[9][1]):
                self.assertAlmostEqual(value, meant, places=5)

    def test_old_files_are_written_by_them(self):
        for order in ORDERS.values():
            bank = written("Old file prefix", order, uniqueID=UNIQUE_ID, kind=55)
            self.assert_own("--bank", self.file("old.orb", bank + old_records(OWN, order)))
            preset = written("Old file prefix", order, uniqueID=UNIQUE_ID, kind=33)
            met = self.values("--preset",
                              self.file("old.orv", preset + old_records(OWN[5:6], order)))
            for value, meant in zip(met, OWN[5][1]):
                self.assertAlmostEqual(value, meant, places=5)

    def test_an_old_chunk_is_written_by_them(self):
        for order in ORDERS.values():
            prefix = written("Old chunk prefix", order, tag=constant("Old chunk prefix", "tag"),
                             uniqueID=UNIQUE_ID, recordCount=3, currentPreset=2)
            state = self.file("old", prefix + old_records(OWN[:3], order))
            self.assert_own("--state", state, presets=OWN[:3])
            self.assertEqual(self.names("--state", state)[1], 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
