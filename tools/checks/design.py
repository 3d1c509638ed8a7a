"""docs/design.md tells what the code and the tests tell: its example, its tests, its oddities, its files."""

import os
import re

from .sources import ALLOWED

PAGE = "docs/design.md"
EXAMPLE = re.compile(r"// shown in docs/design\.md\n(.*?)// until here\n", re.S)
SHOWN = re.compile(r"<!-- (\S+) -->\n```cpp\n(.*?)```\n", re.S)
ROW = re.compile(r"^\| `([a-z0-9-]+)` \|")
MARK = re.compile(r"\bodd: ([a-z0-9-]+)")


def check(tree):
    if not os.path.exists(os.path.join(tree.root, PAGE)):
        return [(PAGE, 1, "the design page isn't there")]
    return _example(tree) + _tests(tree) + _oddities(tree) + _files(tree)


def _lines(tree):
    return list(enumerate(tree.read(PAGE).splitlines(), 1))


def _example(tree):
    wrong = []
    for shown in SHOWN.finditer(tree.read(PAGE)):
        path, text = shown.groups()
        line = tree.read(PAGE)[:shown.start()].count("\n") + 1
        compiled = EXAMPLE.search(tree.read(path)) if os.path.exists(os.path.join(tree.root, path)) else None
        if not compiled or compiled.group(1) != text:
            wrong.append((PAGE, line, f"the example isn't that of {path}"))
    return wrong


def _tests(tree):
    named = re.compile(r"`(\w+)\.(\w+_\w+|\w+)`")
    tests = set()
    for path in tree.files("tests", endings=(".cpp",)):
        tests.update(re.findall(r"^TEST(?:_[FP])?\((\w+),\s*(\w+)\)", tree.read(path), re.M))
    return [(PAGE, number, f"there is no test {suite}.{name}")
            for number, line in _lines(tree) if ROW.match(line)
            for suite, name in [named.findall(line)[-1:] or [("", "")]][0] if (suite, name) not in tests]


def _oddities(tree):
    rows = {ROW.match(line).group(1): number for number, line in _lines(tree) if ROW.match(line)}
    marks = {}
    for path in tree.files(*ALLOWED):
        for number, line in enumerate(tree.read(path).splitlines(), 1):
            for word in MARK.findall(line):
                marks.setdefault(word, (path, number))
    return ([(PAGE, number, f"no place in the code says `odd: {word}`")
             for word, number in rows.items() if word not in marks] +
            [(*place, f"{PAGE} has no row `{word}`") for word, place in marks.items() if word not in rows])


def _files(tree):
    path_in_code = re.compile(r"`((?:%s)/[\w/]+\.(?:cpp|h))`" % "|".join(sorted({a.split("/")[0] for a in ALLOWED} | {"tests"})))
    return [(PAGE, number, f"there is no file {path}")
            for number, line in _lines(tree) for path in path_in_code.findall(line)
            if not os.path.exists(os.path.join(tree.root, path))]
