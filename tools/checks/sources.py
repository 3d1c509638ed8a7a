"""Rules that look at the text of the sources."""

import os
import re
import subprocess

from .tree import CORE

PLACE = "tools/checks/sources.py"

# Each floor, and what it may include beside itself.
ALLOWED = {
    "platform": [],
    "foundation": ["platform"],
    "wordaccess": ["platform", "foundation"],
    "drawing": ["platform", "foundation", "wordaccess"],
    "ads": ["platform", "foundation", "wordaccess", "drawing"],
    "toolbar": ["platform", "foundation", "wordaccess", "drawing", "ads"],
    "addin": ["platform", "foundation", "wordaccess", "drawing", "ads", "toolbar"],
    "platform/wrappers": ["platform"],
    "platform/desk": ["platform", "platform/desk/raster", "platform/looks"],
    "platform/desk/raster": ["platform"],
    "platform/looks": ["platform"],
    "platform/win32": ["platform", "platform/looks"],
    "platform/win32/host": ["platform", "platform/win32", "platform/looks"],
    "wordsim": ["platform"],
    "adtool": ["platform", "platform/desk"],
    "play": ["platform", "platform/wrappers", "foundation", "drawing", "wordsim"],
    "desk": ["platform", "platform/wrappers", "platform/desk", "platform/desk/raster", "wordsim", "play", "adtool",
             *CORE],
    "server": ["platform/win32"] + CORE,
    "server/exports": ["server", "platform/win32"],
    "wordhost": ["platform", "platform/win32", "platform/win32/host", "wordsim", "play"],
}

# What the build makes of server/strandline.idl.
GENERATED = {"strandline_com.h", "strandline_com.c"}

# Folders of programs beside the floors; each of their folders is collected by a target of its own.
PROGRAMS = ["tests", "bench", "fuzz"]
BUILT_PROGRAM_FOLDERS = {"bench", "bench/windows", "fuzz", "tools/mutation", "tools/mutation/sample"}


def check_format(tree):
    sources = list(tree.files(*sorted({each.split("/")[0] for each in ALLOWED}), *PROGRAMS))
    result = subprocess.run(["clang-format", "--dry-run", "--Werror"] + sources, cwd=tree.root, capture_output=True,
                            text=True)
    wrong = {}
    for path, line in re.findall(r"^(.+?):(\d+):\d+: error: ", result.stderr, flags=re.M):
        wrong.setdefault(path, int(line))
    if result.returncode != 0 and not wrong:
        return [(PLACE, 1, f"clang-format can't check: {result.stderr.strip()[-300:]}")]
    return [(os.path.relpath(os.path.join(tree.root, path), tree.root), line, "isn't formatted: clang-format -i")
            for path, line in wrong.items()]


def check_includes(tree):
    wrong = []
    for folder, allowed in ALLOWED.items():
        for path in tree.files_in(folder):
            for number, line in enumerate(tree.read(path).splitlines(), 1):
                quoted = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
                if quoted and quoted.group(1) not in GENERATED:
                    target = os.path.dirname(quoted.group(1))
                    if target != folder and target not in allowed:
                        wrong.append((path, number, f"{folder}/ may not include {quoted.group(1)}"))
                angled = re.match(r"\s*#\s*include\s*<([^>]+)>", line)
                if angled and folder in CORE and ("/" in angled.group(1) or "." in angled.group(1)):
                    wrong.append((path, number, "the core includes nothing but the standard library"))
    return wrong


def check_line_bases(tree):
    """The files of one module count their lines from bases so far apart that no two statements share a line."""
    taken = {}
    wrong = []
    for path in tree.files(*CORE):
        text = tree.read(path)
        base = re.search(r"ModuleFile kModule\{&kModuleInfo(?:, (\d+))?\}", text)
        if not base:
            continue
        module = _module_of(tree, text)
        first = int(base.group(1) or 0)
        last = first + text.count("\n") + 1
        for other, other_first, other_last in taken.get(module, []):
            if first <= other_last and other_first <= last:
                wrong.append((path, text[:base.start()].count("\n") + 1,
                              f"lines of {module} overlap those of {other}: give the file another base"))
        taken.setdefault(module, []).append((path, first, last))
    return wrong


def _module_of(tree, text):
    texts = [text] + [tree.read(each) for each in re.findall(r'#include "([\w/]+\.h)"', text)[:1]]
    for each in texts:
        named = re.search(r'kModuleInfo\{u"(\w+)"', each)
        if named:
            return named.group(1)
    return re.search(r"namespace strandline::(\w+)", text).group(1)


def check_listed(tree):
    """Every source stands in a folder that the build collects."""
    known = set(ALLOWED) | BUILT_PROGRAM_FOLDERS
    return [(path, 1, "no build target collects this folder")
            for path in tree.all_files(".cpp")
            if os.path.dirname(path) not in known and path.split("/")[0] != "tests"]


def check_size(tree):
    return [(path, 601, f"{lines} lines; above 600 a file holds more than one idea")
            for path in tree.files(*ALLOWED, *PROGRAMS)
            for lines in [tree.read(path).count("\n")] if lines > 600]
