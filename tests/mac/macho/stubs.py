#!/usr/bin/env python3
"""stubs.py FOLDER: writes text-based libraries that export exactly the allowed symbols of
Apple's."""
import os
import shutil
import sys

import imports

TARGETS = "[ x86_64-macos, arm64-macos ]"
FRAMEWORKS = "/System/Library/Frameworks"
IN_COCOA = ("AppKit", "Foundation")  # what Cocoa is an umbrella for


def text(path, symbols=(), classes=(), reexported=()):
    lines = ["--- !tapi-tbd", "tbd-version: 4", f"targets: {TARGETS}", f"install-name: {path}"]
    if reexported:
        lines += ["reexported-libraries:", f"  - targets: {TARGETS}",
                  "    libraries: [ " + ", ".join(f"'{name}'" for name in reexported) + " ]"]
    lines += ["exports:", f"  - targets: {TARGETS}"]
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
    shutil.rmtree(folder, ignore_errors=True)
    parts = []
    for section in imports.sections():
        if not section.apple:
            continue
        name = os.path.basename(section.path).split(".")[0]
        content = text(section.path, section.symbols, section.classes)
        if not section.path.startswith(FRAMEWORKS):
            write(f"{folder}/{name}.tbd", content)
        elif name in IN_COCOA:
            # Where it is looked for as a part, and nowhere else.
            parts.append(section.path)
            write(folder + section.path + ".tbd", content)
        else:
            write(f"{folder}/{name}.framework/{name}.tbd", content)
    write(f"{folder}/Cocoa.framework/Cocoa.tbd",
          text(f"{FRAMEWORKS}/Cocoa.framework/Versions/A/Cocoa", ["_stub_Cocoa"], (), parts))


main()
