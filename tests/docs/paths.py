"""Finds the files and folders that a document names and that are not in the source tree.

Names are looked for in code spans, in fenced blocks and in links. A path with a folder in it is one
from the tree's root, with `*` for any characters; a link's is one from the document's folder. A
file's name alone, or a folder's with its slash, may be anywhere in the tree. What the build makes
(`build/`), what lies in a home folder, and what is written out from the file system's root is none
of the tree's.
"""
import re

FENCE = re.compile(r"^```.*?^```$", re.M | re.S)
SPAN = re.compile(r"`([^`]+)`")
LINK = re.compile(r"\]\(([^)#:]+)(?:#[^)]*)?\)")
PLACE = re.compile(r"\]\(([^)#:]*)#([^)]*)\)")  # a heading of another document, or of the same one
HEADING = re.compile(r"^#+ +(.*?) *$", re.M)
FILE = re.compile(r"^[\w-][\w.-]*\.(?:cpp|h|mm|py|sh|cmake|txt|md|rst|svg|dict|json)$")
PATH = re.compile(r"^(?:\./)?\w[\w.*+-]*/[\w.*+/-]*$")


def words_of(text):
    """The words of code: of spans, and of fenced blocks outside of comments."""
    for block in FENCE.findall(text):
        for line in block.splitlines()[1:-1]:
            yield from line.split("#")[0].split()
    for span in SPAN.findall(FENCE.sub("", text)):
        yield from span.split()


def is_name(word):
    return not word.startswith("build/") and (PATH.match(word) or FILE.match(word))


def is_there(root, word):
    name = word.removeprefix("./").rstrip("/")
    if "/" in name:
        return any(root.glob(name))
    tops = [top for top in root.iterdir() if top.is_dir() and not re.match(r"build$|\.", top.name)]
    places = [root.glob(name)] + [top.rglob(name) for top in tops]
    return any(path.is_dir() == word.endswith("/") for place in places for path in place)


def missing(root, document):
    """In the order in which the document names them, the links last."""
    text = (root / document).read_text()
    named = dict.fromkeys(filter(is_name, words_of(text)))
    targets = dict.fromkeys(LINK.findall(text))
    folder = (root / document).parent
    return ([word for word in named if not is_there(root, word)] +
            [target for target in targets if not (folder / target).exists()])


def anchors_of(text):
    """What a link may name after its #: the headings, as pages of the web have them."""
    for heading in HEADING.findall(FENCE.sub("", text)):
        plain = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", heading).replace("`", "").lower()
        yield re.sub(r"[^\w -]", "", plain).replace(" ", "-")


def dead_links(root, document):
    """Links to files that are not there, and to headings that these have not."""
    text = (root / document).read_text()
    folder = (root / document).parent
    yield from (name for name in dict.fromkeys(LINK.findall(text)) if not (folder / name).exists())
    for name, anchor in dict.fromkeys(PLACE.findall(text)):
        target = folder / name if name else root / document
        if target.exists() and anchor not in anchors_of(target.read_text()):
            yield f"{name}#{anchor}"
