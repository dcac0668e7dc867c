"""Tests of the built LV2 bundle, by what everybody's hosts use: the validator of its descriptions,
and the plug-ins applied to sound files, which have to become what widen makes of them."""
import json
import pathlib
import random
import re
import struct
import subprocess
import sys
import tempfile
import unittest

WIDEN, BUNDLE = map(pathlib.Path, sys.argv[1:3])
NAMES = ("width", "baseFreq", "emphasis", "process", "phase")
SETTINGS = ((0.75, 0.25, 0.25, 1, 0), (1, 0, 1, 1, 1), (0.33, 0.777, 0.5, 1, 0), (0.5, 1, 0, 0, 1),
            (0, 0.5, 0, 1, 0))
FRAMES = 30000


def run(*command):
    done = subprocess.run([str(part) for part in command], text=True, capture_output=True,
                          timeout=60, check=False)
    if done.returncode:
        raise AssertionError(f"{command}: {done.stdout}{done.stderr}")
    return done.stdout + done.stderr


def write_wave(path, channels, rate):
    """Noise in single precision."""
    chance = random.Random(rate)
    count = channels * FRAMES
    data = struct.pack(f"<{count}f", *(chance.uniform(-1, 1) for _ in range(count)))
    form = struct.pack("<HHIIHH", 3, channels, rate, rate * 4 * channels, 4 * channels, 32)
    body = b"WAVEfmt " + struct.pack("<I", len(form)) + form
    body += b"data" + struct.pack("<I", len(data)) + data
    path.write_bytes(b"RIFF" + struct.pack("<I", len(body)) + body)


def samples(path):
    """The bytes of a WAV's sound."""
    data, at = path.read_bytes(), 12
    while data[at:at + 4] != b"data":
        at += 8 + struct.unpack_from("<I", data, at + 4)[0]
    return data[at + 8:at + 8 + struct.unpack_from("<I", data, at + 4)[0]]


class Description(unittest.TestCase):
    def test_is_valid(self):
        told = run("lv2_validate", *sorted(BUNDLE.glob("*.ttl")))
        self.assertIn("Found 0 errors", told)

    def test_tells_hosts_what_the_ports_are_for(self):
        """As lv2info reads it, port by port."""
        for uri, audio in (("urn:orv:trelvan", 4), ("urn:orv:trelvan:mono", 3)):
            ports = run("lv2info", uri).split("\tPort ")[1:]
            self.assertEqual(len(ports), audio + 5)
            for port in ports[:audio]:  # without groups GStreamer takes no stereo effect
                self.assertIn(f"Group:       {uri}:", port)
            for port, name in zip(ports[audio:], NAMES):
                self.assertIn(f"Symbol:      {name}\n", port)
                self.assertEqual("lv2core#enabled" in port, name == "process", port)
                self.assertEqual("lv2core#toggled" in port, name in ("process", "phase"), port)
                self.assertEqual("265.0 Hz" in port, name == "baseFreq", port)
                ends = re.findall(r"(Minimum|Maximum|Default): +([\d.]+)", port)
                default = {"baseFreq": 0.5, "process": 1.0}.get(name, 0.0)
                self.assertEqual({end: float(value) for end, value in ends},
                                 {"Minimum": 0.0, "Maximum": 1.0, "Default": default})

    def test_tells_hosts_that_the_window_takes_a_scale(self):
        window = (BUNDLE / "trelvan.ttl").read_text().split("\n<urn:orv:trelvan:window>")[1]
        self.assertIn("opts:supportedOption ui:scaleFactor ;", window)
        for feature in ("opts:options", "urid:map"):
            self.assertRegex(window, rf"lv2:optionalFeature [^;]* {feature}\b")

    def test_names_files_that_are_there(self):
        manifest = (BUNDLE / "manifest.ttl").read_text()
        named = set(re.findall(r"(?:lv2:binary|rdfs:seeAlso) <([^>]+)>", manifest))
        self.assertEqual(len(named), 3)
        for name in named:
            self.assertTrue((BUNDLE / name).is_file(), name)

    def test_has_what_the_window_and_its_manual_need(self):
        names = {path.name for path in (BUNDLE / "Resources").rglob("*")}
        for name in ("bmp00128.png", "LiberationSans-Regular.ttf", "Trelvan Operation Manual.pdf"):
            self.assertIn(name, names)

    def test_has_every_factory_preset_with_its_values_for_each_plugin(self):
        text = (BUNDLE / "presets.ttl").read_text()
        number = 0
        for uri in ("urn:orv:trelvan", "urn:orv:trelvan:mono"):
            label = rf"lv2:appliesTo <{uri}> ;\s+rdfs:label \"([^\"]+)\" ;(.*?) \.\n"
            presets = re.findall(label, text, re.S)
            self.assertEqual(len(presets), 24)
            for number, (name, ports) in enumerate(presets):
                told = json.loads(run(WIDEN, "--preset", number, "--list-params", "--json"))
                values = re.findall(r'lv2:symbol "(\w+)" ; pset:value ([\d.]+)', ports)
                self.assertEqual([(port, float(value)) for port, value in values],
                                 [(one["name"], one["value"]) for one in told["parameters"]], name)


class Renders(unittest.TestCase):
    def compare(self, uri, channels):
        with tempfile.TemporaryDirectory() as folder:
            sound, ours, theirs = (pathlib.Path(folder) / name
                                   for name in ("in.wav", "vst.wav", "lv2.wav"))
            for rate in (44100, 48000, 96000):
                write_wave(sound, channels, rate)
                for values in SETTINGS:
                    pairs = list(zip(NAMES, values))
                    run(WIDEN, sound, "-o", ours, "-f", "-q", "--single",
                        *(part for name, value in pairs for part in ("--set", f"{name}={value}")))
                    run("lv2apply", "-i", sound, "-o", theirs,
                        *(part for name, value in pairs for part in ("-c", name, value)), uri)
                    self.assertEqual(len(samples(theirs)), 8 * FRAMES)
                    self.assertTrue(samples(theirs) == samples(ours), (rate, values))

    def test_of_stereo_are_those_of_widen(self):
        self.compare("urn:orv:trelvan", 2)

    def test_of_mono_are_those_of_widen(self):
        self.compare("urn:orv:trelvan:mono", 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
