"""Finds the commands that a document tells people to type.

They are the lines of its code blocks: fenced ones, indented ones, and those after a "::" of the
manual; and pipelines in its text. A comment after a command, and what an example shows in a column
beside it, is left out.
"""
import re


def _blocks(text, markup):
    if markup == "rst":
        for block in re.findall(r"::\n\n((?:(?:   .*)?\n)+)", text):
            yield re.sub(r"^   ", "", block, flags=re.M)
        return
    yield from re.findall(r"^```\n(.*?)^```$", text, re.M | re.S)
    outside = re.sub(r"^```\n.*?^```$", "", text, flags=re.M | re.S)
    for block in re.findall(r"(?:^|\n\n)((?:    .*\n)+)", outside):
        yield re.sub(r"^    ", "", block, flags=re.M)
    for span in re.findall(r"`([^`]* \| [^`]*)`", outside):
        yield span.replace("\n", " ")


def commands(text, markup, programs):
    """In their order: the lines that name one of `programs` as a command anywhere in a pipeline."""
    called = re.compile(r"(?:^|\| |\()(?:" + "|".join(map(re.escape, programs)) + r")(?: |$)")
    for block in _blocks(text, markup):
        for line in re.sub(r"\\\n *", "", block).splitlines():
            command = re.split(r"\s{2,}(?:#|\S+ -> )|\s{3,}", line.strip())[0]
            # a synopsis, or what a program prints
            shown = re.search(r"\[|\b(?:IN|OUT|FILE|ARGUMENTS)\b|\.\.\.", command.split("'")[0])
            if called.search(command) and not shown and not re.match(r"\w+: ", command):
                yield command
