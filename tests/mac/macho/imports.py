"""The lists of symbols that the module (allowed.txt) and widen (allowedwiden.txt) may import, by
library."""
import fnmatch
import os

FOLDER = os.path.dirname(os.path.abspath(__file__))


class Section:
    """One library: its path on macOS, and what may be imported from it.

    That is symbols and Objective-C classes.
    """

    def __init__(self, title):
        # Without a leading slash it is no library of Apple's: nothing is made of it, only the
        # imports are compared.
        self.path = title
        self.symbols = []
        self.classes = []

    @property
    def apple(self):
        return self.path.startswith("/")

    def names(self):
        for name in self.classes:
            yield "_OBJC_CLASS_$_" + name
            yield "_OBJC_METACLASS_$_" + name
        yield from self.symbols

    def allows(self, symbol):
        return any(fnmatch.fnmatchcase(symbol, name) for name in self.names())


def sections(name="allowed.txt"):
    result = []
    with open(os.path.join(FOLDER, name), encoding="utf-8") as lines:
        for line in lines:
            words = line.split("#")[0].split()
            if not words:
                continue
            if words[0].startswith("["):
                result.append(Section(line.strip()[1:-1]))
            elif words[0] == "class":
                result[-1].classes.append(words[1])
            else:
                result[-1].symbols.append(words[0])
    return result
