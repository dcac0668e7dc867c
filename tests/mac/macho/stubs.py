#!/usr/bin/env python3
"""stubs.py FOLDER: writes text-based libraries that export exactly the allowed symbols of
Apple's."""
import os
import sys

import imports

TARGETS = "[ x86_64-macos, arm64-macos ]"


def text(path, symbols, classes):
    lines = ["--- !tapi-tbd", "tbd-version: 4", f"targets: {TARGETS}", f"install-name: {path}",
             "exports:", f"  - targets: {TARGETS}"]
    if symbols:
        lines.append("    symbols: [ " + ", ".join(f"'{name}'" for name in symbols) + " ]")
    if classes:
        lines.append("    objc-classes: [ " + ", ".join(classes) + " ]")
    return "\n".join(lines + ["...", ""])


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(content)


def main():
    folder = sys.argv[1]
    for section in imports.sections():
        if section.apple:
            name = os.path.basename(section.path).split(".")[0]
            write(f"{folder}/{name}.tbd", text(section.path, section.symbols, section.classes))
    # What is asked for by name; the symbols are in the files above.
    for name in ("Cocoa", "Carbon", "CoreFoundation"):
        path = f"/System/Library/Frameworks/{name}.framework/Versions/A/{name}"
        write(f"{folder}/{name}.framework/{name}.tbd", text(path, [f"_stub_{name}"], []))


main()
