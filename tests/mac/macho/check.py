#!/usr/bin/env python3
"""check.py BUILD LLVM: looks at what the Mach-O build made: the bundle, its exports and names, and
what it, the libraries and widen's sources import."""
import os
import platform
import plistlib
import subprocess
import sys

import imports

PROCESSORS = ("x86_64", "arm64")
OLDEST = {"x86_64": "10.14", "arm64": "11.0"}  # the first system that runs on arm64
BUNDLE = "Trelvan.vst/Contents"
EXPORT = "_VSTPluginMain"
FRAMEWORKS = ("AppKit", "Foundation", "CoreFoundation", "CoreGraphics", "Carbon")

failures = []


def expect(condition, what):
    print(("ok    " if condition else "WRONG ") + what)
    if not condition:
        failures.append(what)


def tool(name, *arguments):
    return subprocess.run([f"{name}-{sys.argv[2]}", *arguments], check=True, capture_output=True,
                          text=True).stdout


def symbols(file, processor, *options):
    out = tool("llvm-nm", f"--arch={processor}", "--just-symbol-name", "--quiet", *options, file)
    return {line.strip() for line in out.splitlines() if line.strip() and not line.endswith(":")}


def check_bundle(build):
    contents = os.path.join(build, BUNDLE)
    print("Trelvan.vst/")
    for folder, folders, files in os.walk(contents):
        folders.sort()
        for name in sorted(files):
            path = os.path.join(folder, name)
            shown = os.path.relpath(path, os.path.dirname(contents))
            print(f"  {shown}  {os.path.getsize(path)} bytes")
    with open(os.path.join(contents, "Info.plist"), "rb") as file:
        info = plistlib.load(file)
    for key, value in info.items():
        print(f"  {key} = {value}")
    expect(info["CFBundleExecutable"] == "Trelvan", "Info.plist names the executable")
    expect(info["CFBundleIdentifier"] == "com.orv.trelvan",
           "Info.plist has the preferences' identifier")
    expect(info["CFBundlePackageType"] == "BNDL", "Info.plist says that it is a bundle")
    expect(info["LSMinimumSystemVersion"] == OLDEST["x86_64"], "Info.plist names the oldest system")
    with open(os.path.join(contents, "PkgInfo"), "rb") as file:
        expect(file.read() == b"BNDL????", "PkgInfo is what it is in every bundle")
    pictures = {name for name in os.listdir(os.path.join(contents, "Resources"))
                if name.endswith(".png")}
    simple = {name for name in pictures if "@2x" not in name}
    double = {name.replace("@2x", "") for name in pictures if "@2x" in name}
    expect(len(simple) >= 20 and simple == double,
           f"every one of {len(simple)} pictures is there at 1x and 2x")


def check_module(module):
    with open(module, "rb") as file:
        expect(file.read(4) == b"\xca\xfe\xba\xbe", "the module is universal")
    expect(set(tool("llvm-lipo", "-archs", module).split()) == set(PROCESSORS),
           "it has both processors' code")
    for processor in PROCESSORS:
        header = tool("llvm-objdump", "--macho", f"--arch={processor}", "--private-headers", module)
        expect(" BUNDLE " in header, f"{processor}: a Mach-O bundle")
        oldest = "minos " + OLDEST[processor] in header or "version " + OLDEST[processor] in header
        expect(oldest, f"{processor}: runs from {OLDEST[processor]} on")
        linked = [line.split()[1] for line in header.splitlines()
                  if line.strip().startswith("name /")]
        print(f"      {processor} links: " + ", ".join(os.path.basename(path) for path in linked))
        for name in FRAMEWORKS:
            expect(any(path.endswith("/" + name) for path in linked), f"{processor}: links {name}")
        exports = (symbols(module, processor, "--defined-only", "--extern-only")
                   - {"__mh_bundle_header"})
        expect(exports == {EXPORT}, f"{processor}: exports {sorted(exports)}")


def check_frameworks(module, processor):
    """What the module takes of a framework, it links that framework for: nothing else of the build
    links them, and a symbol that no library of the link has is looked up when the module runs."""
    out = tool("llvm-nm", f"--arch={processor}", "-m", "--undefined-only", module)
    loose = {line.split()[2] for line in out.splitlines() if "dynamically looked up" in line}
    apples = [section for section in imports.sections() if section.apple]
    missing = {symbol for symbol in loose if any(section.allows(symbol) for section in apples)}
    expect(not missing, f"{processor}: links what it takes from Apple's libraries {sorted(missing)}")


def check_identity(build):
    """The names by which the system keeps things of the plug-in's."""
    with open(os.path.join(build, BUNDLE, "Info.plist"), "rb") as file:
        info = plistlib.load(file)
    with open(os.path.join(build, BUNDLE, "MacOS/Trelvan"), "rb") as file:
        code = file.read()
    identifier = info["CFBundleIdentifier"]
    expect(b"\0" + identifier.encode() + b"\0" in code,
           f"the preferences' identifier is Info.plist's: {identifier}")
    suffix = "_vst24_" + info["CFBundleVersion"].replace(".", "_")
    names = {symbol.removeprefix("_OBJC_CLASS_$_")
             for symbol in symbols(os.path.join(build, "libtrelvan.a"), "arm64", "--defined-only")
             if symbol.startswith("_OBJC_CLASS_$_")}
    expect(len(names) >= 5 and all(name.endswith(suffix) for name in names),
           f"every Objective-C class has format and version in its name: {sorted(names)}")


def check_widen(build):
    """What widen's sources ask of the system and its libraries; it is not linked here."""
    library = os.path.join(build, "host/libwiden_host.a")
    processor = platform.machine()  # it is built for the machine's own
    defined = symbols(library, processor, "--defined-only")
    defined |= symbols(os.path.join(build, "libtrelvan_images.a"), processor, "--defined-only")
    undefined = symbols(library, processor, "--undefined-only")
    check_imports("widen", processor, undefined - defined - {"___dso_handle"}, "allowedwiden.txt")


def check_imports(what, processor, undefined, names="allowed.txt"):
    allowed = imports.sections(names)
    rest = set(undefined)
    for section in allowed:
        found = {symbol for symbol in rest if section.allows(symbol)}
        rest -= found
        if found:
            print(f"      {processor} {what}: {len(found)} from {section.path}")
    expect(not rest, f"{processor} {what}: imports nothing that is not allowed {sorted(rest)}")


def main():
    build = sys.argv[1]
    module = os.path.join(build, BUNDLE, "MacOS/Trelvan")
    check_bundle(build)
    check_module(module)
    check_identity(build)
    check_widen(build)
    for processor in PROCESSORS:
        check_frameworks(module, processor)
        check_imports("module", processor, symbols(module, processor, "--undefined-only"))
        # Our objects too, as the module leaves out what nothing in it asks for.
        ours = [os.path.join(build, name)
                for name in ("libtrelvan.a", "libtrelvan_effect.a", "libtrelvan_images.a")]
        defined = symbols(os.path.join(build, "vstgui/libvstgui.a"), processor, "--defined-only")
        undefined = set()
        for library in ours:
            defined |= symbols(library, processor, "--defined-only")
            undefined |= symbols(library, processor, "--undefined-only")
        check_imports("objects", processor, undefined - defined - {"___dso_handle"})
    print(f"{len(failures)} wrong")
    return 1 if failures else 0


sys.exit(main())
