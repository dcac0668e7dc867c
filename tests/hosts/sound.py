#!/usr/bin/env python3
"""Sound files of 32-bit floats for the host tests: makes them, takes them apart and compares them
bit by bit."""
import random
import struct
import sys

FLOAT_FORMAT = 3  # of a "fmt " chunk: IEEE floats
EXTENSIBLE_FORMAT = 0xFFFE  # the format is the first word of the sub-format


def read(path):
    """Rate in Hz, number of channels, and the frames' bytes."""
    with open(path, "rb") as file:
        data = file.read()
    if data[:4] != b"RIFF" or data[8:12] != b"WAVE":
        sys.exit(f"{path}: not a WAV file")
    at, kind, channels, rate, bits = 12, 0, 0, 0, 0
    while at + 8 <= len(data):
        name, size = struct.unpack_from("<4sI", data, at)
        at += 8
        if name == b"fmt ":
            kind, channels, rate, _, _, bits = struct.unpack_from("<HHIIHH", data, at)
            if kind == EXTENSIBLE_FORMAT:
                (kind,) = struct.unpack_from("<H", data, at + 24)
        elif name == b"data":
            if kind != FLOAT_FORMAT or bits != 32:
                sys.exit(f"{path}: not 32-bit floats")
            return rate, channels, data[at:at + size]
        at += size + size % 2
    sys.exit(f"{path}: no sound in it")


def write(path, rate, channels, frames):
    frame_size = 4 * channels
    form = struct.pack("<HHIIHHH", FLOAT_FORMAT, channels, rate, rate * frame_size, frame_size,
                       32, 0)
    fact = struct.pack("<I", len(frames) // frame_size)
    body = b"WAVE"
    for name, content in ((b"fmt ", form), (b"fact", fact), (b"data", frames)):
        body += struct.pack("<4sI", name, len(content)) + content
    with open(path, "wb") as file:
        file.write(struct.pack("<4sI", b"RIFF", len(body)) + body)


def make(path, rate, seconds, channels):
    """Noise of two loudnesses, other on every channel, the same every time."""
    noise = random.Random(1)
    count = rate * seconds * channels
    samples = (noise.uniform(-0.4, 0.4) * (1.0 if i < count // 2 else 0.1) for i in range(count))
    write(path, rate, channels, struct.pack(f"<{count}f", *samples))


def duplicate(path, out):
    """A stereo file with a mono file's channel on both sides."""
    rate, _, frames = read(path)
    write(out, rate, 2, b"".join(2 * frames[at:at + 4] for at in range(0, len(frames), 4)))


def left_only(path, out):
    """A stereo file with a mono file's channel at the left and silence at the right."""
    rate, _, frames = read(path)
    write(out, rate, 2, b"".join(frames[at:at + 4] + bytes(4) for at in range(0, len(frames), 4)))


def left(path, out):
    """A mono file of a stereo file's left channel."""
    rate, _, frames = read(path)
    write(out, rate, 1, b"".join(frames[at:at + 4] for at in range(0, len(frames), 8)))


def part(path, out, first, count):
    """A file of `count` frames from frame `first` on."""
    rate, channels, frames = read(path)
    size = 4 * channels
    write(out, rate, channels, frames[first * size:(first + count) * size])


def compare(path, other_path):
    """Exits with what differs, unless nothing does."""
    (rate, channels, a), (other_rate, other_channels, b) = read(path), read(other_path)
    if (rate, channels, len(a)) != (other_rate, other_channels, len(b)):
        sys.exit(f"{path}: {rate} Hz, {channels} channels, {len(a)} bytes; "
                 f"{other_path}: {other_rate} Hz, {other_channels} channels, {len(b)} bytes")
    if a == b and any(a):
        return
    if not any(a):
        sys.exit(f"{path}: silence")
    count = len(a) // 4
    differences = [abs(x - y) for x, y in zip(struct.unpack(f"<{count}f", a),
                                              struct.unpack(f"<{count}f", b))]
    first = next(i for i in range(count) if a[4 * i:4 * i + 4] != b[4 * i:4 * i + 4])
    different = sum(a[4 * i:4 * i + 4] != b[4 * i:4 * i + 4] for i in range(count))
    sys.exit(f"{different} of {count} samples differ, the first in frame {first // channels}, "
             f"by at most {max(differences):g}")


def main(words):
    if len(words) == 5 and words[0] == "make":
        make(words[1], int(words[2]), int(words[3]), int(words[4]))
    elif len(words) == 2 and words[0] == "raw":
        sys.stdout.buffer.write(read(words[1])[2])
    elif len(words) == 3 and words[0] == "wav":
        write(words[2], int(words[1]), 2, sys.stdin.buffer.read())
    elif len(words) == 3 and words[0] == "both-sides":
        duplicate(words[1], words[2])
    elif len(words) == 3 and words[0] == "left-only":
        left_only(words[1], words[2])
    elif len(words) == 3 and words[0] == "left":
        left(words[1], words[2])
    elif len(words) == 5 and words[0] == "part":
        part(words[1], words[2], int(words[3]), int(words[4]))
    elif len(words) == 3 and words[0] == "same":
        compare(words[1], words[2])
    else:
        sys.exit("usage: sound.py make OUT RATE SECONDS CHANNELS | raw IN | wav RATE OUT | "
                 "both-sides MONO STEREO | left-only MONO STEREO | left STEREO MONO | "
                 "part IN OUT FIRST COUNT | same A B")


if __name__ == "__main__":
    main(sys.argv[1:])
