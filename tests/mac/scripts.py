#!/usr/bin/env python3
"""scripts.py SOURCE: what a Mac runs of our scripts needs no newer bash than macOS's own, 3.2, and
of the other programs nothing that GNU's have and BSD's have not.

It looks for words and knows no meanings: those that are likely to be written one day.
"""
import glob
import os
import re
import sys

# Beside them all of cmake/.
SCRIPTS = ("run", "test", "tools/asroot.sh", "tools/build.sh", "tools/dependencies-mac.sh",
           "tools/install.sh", "tools/sources.sh", "tests/dependencies/mendtoolkittest.sh",
           "tests/dependencies/runtest.sh", "host/options/bashcompletion.cpp")
# Debian's packages and the tarball, and what tries GNU's way first.
ELSEWHERE = ("DebianFiles", "DebianPackages", "Tarball", "PackageFormats")

# What is not there, and an example of it.
NEWER_BASH = {
    r"\b(mapfile|readarray|coproc)\b": "mapfile -t lines",
    r"\b(declare|local|typeset) -[a-zA-Z]*[Agln]": "declare -A table",
    r"\$\{\w+(\[[@*\w]+\])?(,|\^|@[a-zA-Z]\})": "${name,,}",
    r"\$\{\w+\[-\d": "${names[-1]}",
    r"\[\[ -v |\[ -v |\btest -v ": "[[ -v name ]]",
    r"&>>|\|&|;;?&(\s|$)": "command &>>log",
    r"\bwait -[a-z]*[nfp]": "wait -n",
    r"\bshopt -s (globstar|lastpipe|inherit_errexit)": "shopt -s globstar",
    r"\bprintf ['\"]?[^ ]*%\(": "printf '%(%s)T'",
    r"\b(BASHPID|EPOCHSECONDS|EPOCHREALTIME|SRANDOM)\b": "$EPOCHSECONDS",
    r"\bread [^|;]*-[a-zA-Z]*[Ni]\b": "read -N 1",
    r"\{\w+\.\.\w+\.\.": "{1..9..2}",
    r"\bexec \{\w+\}": "exec {file}<name",
    r"\bsource <\(": "source <(command)",  # there, and reads nothing
}
OPTIONS = r"( -\S+)* -[a-zA-Z]*"
GNU = {
    r"\bsed" + OPTIONS + r"[isz]\b": "sed -n -i s,a,b, file",
    r"\bgrep" + OPTIONS + r"[Pz]": "grep -zP a",
    r"\bsort" + OPTIONS + r"[RVz]": "sort -z",
    r"\bxargs" + OPTIONS + r"r\b": "xargs -0 -r",
    r"\b(cp|mv|ln)" + OPTIONS + r"[Tt]\b": "cp -rT a b",
    r"\bfind .*-(printf|regextype|readable|writable|executable)\b": "find . -printf %p",
    r"\b(readlink|realpath) -": "readlink -f a",
    r"\bstat (-c|--)": "stat -c %s a",
    r"\bdate .*(-d|-I|--)": "date -d yesterday",
    r"\b(head|tail) -[cn] ?-": "head -n -1",
    r"\btouch -d|\bbase64 -w|\bdu -b|\bmktemp -p": "touch -d now a",
    r"\b(cp|mv|ln|rm|rmdir|mkdir|mktemp|chmod|chown|sed|sort|find|xargs|ls|tar|wc|cut|tr|touch|du)"
    r"( -\S+)* --\w": "mkdir --parents a",
    r"\b(tac|timeout|setsid|stdbuf|numfmt|getent|shuf|md5sum|sha\d+sum)\b": "sha256sum a",
    r"\bnproc\b(?! 2>/dev/null \|\|)": "nproc",
}
MISSING = {**NEWER_BASH, **GNU}

wrong = []
for word, example in MISSING.items():
    if not re.search(word, example):
        wrong.append(f"{word} does not find {example}")


def code_of(name):
    with open(os.path.join(sys.argv[1], name), encoding="utf-8") as file:
        text = file.read()
    return re.sub(r"(?m)(^|(?<=\s))#.*$", "", text)


def look_at(name, text):
    for number, line in enumerate(text.splitlines(), 1):
        wrong.extend(f"{name}:{number}: {match.group().strip()}"
                     for match in (re.search(word, line) for word in MISSING) if match)


for script in SCRIPTS:
    text = code_of(script)
    look_at(script, text)
    # There `set -u` does not know an array that has nothing in it.
    wrong.extend(f"{script}: {array} begins empty and is not counted before it is used"
                 for array in re.findall(r"(?m)\b(\w+)=\(\)\s*$", text)
                 if re.search("set -[a-z]*u", text) and "${#%s[" % array not in text)
modules = [path for path in glob.glob("cmake/*.cmake", root_dir=sys.argv[1])
           if os.path.splitext(os.path.basename(path))[0] not in ELSEWHERE]
for module in modules:
    look_at(module, code_of(module))
print("\n".join([*wrong, f"{len(SCRIPTS)} scripts and {len(modules)} modules, "
                 f"{len(wrong)} wrong"]))
sys.exit(1 if wrong or len(modules) < 20 else 0)
