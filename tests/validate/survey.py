#!/usr/bin/env python3
"""Runs the validator over many plug-in binaries and tells, as Markdown, what it says of them.

survey.py WIDEN [--jobs N] [--strictness N] [--seconds N] COLUMN...: a column is an installed
package of Debian's with all its VST 2 binaries, or NAME=PATTERN with those that a glob pattern
finds (** for folders below). Everything that was said is kept in the folder `survey`, one file a
binary; what is there already is not asked again, so that a long survey can be gone on with.
"""
import argparse
import collections
import concurrent.futures
import glob
import pathlib
import re
import subprocess
import sys

LINE = re.compile(r"^(pass|FAIL|left out) +(.+?) \(\d+\.\d s\)(?:: (.*))?$")


def validated(widen, binary, arguments):
    """[(verdict, check, text)] of one binary; one line "loads" where nothing could be checked."""
    told = pathlib.Path("survey") / (binary.strip("/").replace("/", "_") + ".txt")
    if not told.exists():
        command = [widen, "--validate", binary, "--strictness", str(arguments.strictness),
                   "--seed", "1"]
        try:
            done = subprocess.run(command, capture_output=True, text=True, errors="replace",
                                  timeout=arguments.seconds, check=False)
            output = done.stdout + done.stderr
        except subprocess.TimeoutExpired as expired:
            output = (expired.stdout or b"").decode(errors="replace") + "\nran out of time\n"
        told.write_text(output)
    output = told.read_text()
    return [match.groups() for line in output.splitlines() if (match := LINE.match(line))]


def binaries_of(column):
    """(name, binaries) of a column as it was given."""
    name, _, pattern = column.partition("=")
    if pattern:
        return name, sorted(glob.glob(pattern, recursive=True))
    files = subprocess.run(["dpkg", "-L", name], capture_output=True, text=True, check=True).stdout
    return name, [path for path in files.splitlines()
                  if path.endswith(".so") and re.search("/(lx)?vst/", path)]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("widen")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--strictness", type=int, default=10)
    parser.add_argument("--seconds", type=int, default=900)
    parser.add_argument("columns", nargs="+", metavar="COLUMN")
    arguments = parser.parse_args()
    pathlib.Path("survey").mkdir(exist_ok=True)
    columns = dict(binaries_of(column) for column in arguments.columns)
    counts = collections.defaultdict(collections.Counter)  # (check, column) -> verdicts
    sound = collections.Counter()  # column -> binaries without a failure
    order = []
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        runs = {pool.submit(validated, arguments.widen, binary, arguments): (name, binary)
                for name, binaries in columns.items() for binary in binaries}
        for run in concurrent.futures.as_completed(runs):
            name, binary = runs[run]
            lines = run.result()
            failed = sum(verdict == "FAIL" for verdict, _, _ in lines)
            sound[name] += bool(lines) and failed == 0
            print(f"{name}: {binary}: {failed} of {len(lines)} fail", file=sys.stderr)
            for verdict, check, _ in lines:
                if check not in order:
                    order.append(check)
                counts[check, name][verdict] += 1
    print("| check | " + " | ".join(columns) + " |")
    print("|---|" + "---|" * len(columns))
    for check in order:
        cells = []
        for name in columns:
            verdicts = counts[check, name]
            asked = verdicts["pass"] + verdicts["FAIL"]
            cells.append(f"{verdicts['FAIL']} of {asked}" if asked else "-")
        print(f"| {check} | " + " | ".join(cells) + " |")
    cells = [f"{sound[name]} of {len(binaries)}" for name, binaries in columns.items()]
    print("| **none of them** | " + " | ".join(cells) + " |")


if __name__ == "__main__":
    main()
