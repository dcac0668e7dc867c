#!/usr/bin/env python3
"""Takes one sound through every VST 2 binary of the machine's packages with widen and with a second
host (secondhost.cpp), and compares the results bit by bit. Prints a line for each binary, and a
table by package.
Usage: tests/hosts/survey.py WIDEN [BINARY...]"""
import collections
import glob
import os
import random
import struct
import subprocess
import sys
import tempfile

import sound

RATE = 48000  # Hz, at which no effect warns of presets for another one
BLOCK = 1024  # frames
SECONDS = 2
LIMIT = 120  # seconds a render
FOLDERS = ["/usr/lib/vst/**/*.so", "/usr/lib/lxvst/**/*.so",
           "/usr/lib/*/iem-plugin-suite/vst/*.so"]


def package_of(path):
    found = subprocess.run(["dpkg", "-S", path], capture_output=True, text=True, check=False)
    return found.stdout.split(":")[0] or "no package"


def make_input(folder):
    noise = random.Random(1)
    frames = [(noise.uniform(-0.3, 0.3), noise.uniform(-0.3, 0.3)) for _ in range(RATE * SECONDS)]
    for channels in (1, 2):
        data = b"".join(struct.pack(f"<{channels}f", *frame[:channels]) for frame in frames)
        sound.write(os.path.join(folder, f"in{channels}.wav"), RATE, channels, data)


def run(words, folder, **more):
    surroundings = {"PATH": os.environ["PATH"], "HOME": folder, "XDG_CONFIG_HOME": folder,
                    "LC_ALL": "C.UTF-8"}
    try:
        return subprocess.run(words, capture_output=True, timeout=LIMIT, env=surroundings,
                              check=False, **more)
    except subprocess.TimeoutExpired:
        return None


def second(host, path, channels, folder):
    source = sound.read(os.path.join(folder, f"in{channels}.wav"))[2]
    done = run([host, path, str(RATE), str(BLOCK), str(channels)], folder, input=source)
    return done.stdout if done and done.returncode == 0 else None


def judge(widen, host, path, folder):
    """What came of a binary: same, silent (in both), other, refused or failed, with a reason."""
    out = os.path.join(folder, "out.wav")
    reason = ""
    for channels in (2, 1):
        done = run([widen, "-q", "-f", "--plugin", path, "--block", str(BLOCK), "--single",
                    "--format", "float", os.path.join(folder, f"in{channels}.wav"), "-o", out],
                   folder)
        if done is None:
            return "failed", f"no end within {LIMIT} s"
        if done.returncode == 0:
            break
        reason = done.stderr.decode(errors="replace").strip().splitlines()[-1:]
        reason = reason[0].split(": ")[-1] if reason else f"status {done.returncode}"
    else:
        return "refused", reason
    ours = sound.read(out)[2]
    theirs = second(host, path, channels, folder)
    if theirs is None:
        return "failed", "the second host has no result"
    if ours == theirs:
        return "same" if any(ours) else "silent", "mono" if channels == 1 else ""
    if second(host, path, channels, folder) != theirs:
        return "other", "differs from run to run in the second host too"
    a = struct.unpack(f"<{len(ours) // 4}f", ours)
    b = struct.unpack(f"<{len(theirs) // 4}f", theirs)
    if len(a) != len(b):
        return "other", f"{len(a) // 2} and {len(b) // 2} frames"
    first = next(i for i in range(len(a)) if a[i] != b[i])
    return "other", (f"from frame {first // 2} on, by at most "
                     f"{max(abs(x - y) for x, y in zip(a, b)):.2g}")


def main(words):
    if not words:
        sys.exit(__doc__)
    widen = os.path.abspath(words[0])
    here = os.path.dirname(os.path.abspath(__file__))
    # Some folders are links to others.
    paths = words[1:] or sorted({os.path.realpath(path) for pattern in FOLDERS
                                 for path in glob.glob(pattern, recursive=True)})
    counts = collections.defaultdict(collections.Counter)
    with tempfile.TemporaryDirectory() as folder:
        host = os.path.join(folder, "secondhost")
        subprocess.run(["g++", "-std=c++20", "-O2", "-o", host,
                        os.path.join(here, "secondhost.cpp"), "-ldl"], check=True)
        make_input(folder)
        for path in paths:
            result, reason = judge(widen, host, path, folder)
            package = package_of(path)
            counts[package][result] += 1
            print(f"{result:8} {package} {os.path.basename(path)} {reason}", flush=True)
    print("\n| package | binaries | the same | silence in both | another result | refused | failed |")
    print("|---|---:|---:|---:|---:|---:|---:|")
    for package, count in sorted(counts.items()):
        print(f"| {package} | {sum(count.values())} | {count['same']} | {count['silent']} | "
              f"{count['other']} | {count['refused']} | {count['failed']} |")


if __name__ == "__main__":
    main(sys.argv[1:])
