#!/usr/bin/env python3
"""Takes the effect's chunk out of the newest of the states that an LV2 host has saved below
a folder."""
import base64
import pathlib
import re
import sys

CHUNK = re.compile(r'<urn:orv:trelvan:chunk>\s*("""|")([^"]*)\1\^\^')


def chunk_in(state):
    """state: Turtle. None where it holds no chunk."""
    match = CHUNK.search(state)
    return base64.b64decode("".join(match[2].split())) if match else None


def main(folder, out):
    found = []
    for path in pathlib.Path(folder).rglob("*.ttl"):
        chunk = chunk_in(path.read_text(encoding="utf-8"))
        if chunk is not None:
            found.append((path.stat().st_mtime_ns, chunk))
    if not found:
        sys.exit(f"no state below {folder} holds a chunk")
    pathlib.Path(out).write_bytes(max(found)[1])


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit("usage: lv2state.py FOLDER OUT")
    main(*sys.argv[1:])
