#!/usr/bin/env python3
"""Takes the effect's chunk out of the newest of the states that an LV2 host has saved below
a folder."""
import base64
import pathlib
import re
import sys

CHUNK = re.compile(r'<urn:orv:trelvan:chunk>\s*("""|")([^"]*)\1\^\^')


def main(folder, out):
    found = []
    for path in pathlib.Path(folder).rglob("*.ttl"):
        match = CHUNK.search(path.read_text(encoding="utf-8"))
        if match:
            found.append((path.stat().st_mtime_ns, match[2]))
    if not found:
        sys.exit(f"no state below {folder} holds a chunk")
    pathlib.Path(out).write_bytes(base64.b64decode("".join(max(found)[1].split())))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit("usage: lv2state.py FOLDER OUT")
    main(*sys.argv[1:])
