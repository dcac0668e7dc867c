#!/usr/bin/env python3
"""The effect's settings in Audacity's pluginsettings.cfg: puts chunks in and takes them out, by
kind of settings.

Kinds: FactoryDefaults, CurrentSettings, SavedState, UserPresets/<name>.
"""
import base64
import os
import re
import sys

EFFECT = base64.b64encode(b"Effect_VST_Orv_Orv Trelvan").decode().replace("=", "\\=")


def header(kind):
    return f"[pluginsettings/base64\\:{EFFECT}/private/{kind}]\n"


def chunk_of(text, kind):
    _, found, rest = text.partition(header(kind))
    chunk = re.match(r"[^\[]*?^Chunk=(.*)$", rest, flags=re.M) if found else None
    if not chunk:
        sys.exit(f"Audacity has no {kind} of the effect")
    return base64.b64decode(chunk[1].replace("\\=", "="))


def with_chunk(text, kind, chunk):
    coded = base64.b64encode(chunk).decode()
    before, found, rest = text.partition(header(kind))
    if found:
        rest = re.sub(r"^Chunk=.*$", lambda _: f"Chunk={coded}", rest, count=1, flags=re.M)
        return before + found + rest
    # The numbers are those of the effect's record; Audacity takes no settings with others.
    return text + header(kind) + f"UniqueID=1416394350\nVersion=1\nElements=5\nChunk={coded}\n"


def main(words):
    if len(words) != 4 or words[0] not in ("put", "take"):
        sys.exit("usage: audacitysettings.py put|take FILE KIND CHUNK")
    action, path, kind, chunk = words
    text = "pluginsettingsversion=1.0\n"
    if os.path.exists(path):
        with open(path, encoding="utf-8") as file:
            text = file.read()
    if action == "take":
        with open(chunk, "wb") as file:
            file.write(chunk_of(text, kind))
        return
    with open(chunk, "rb") as file:
        text = with_chunk(text, kind, file.read())
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


if __name__ == "__main__":
    main(sys.argv[1:])
