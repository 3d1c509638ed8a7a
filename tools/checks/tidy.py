"""clang-tidy over the core.

clang-tidy spends most of its time on the standard library's headers, so each processor gets one unit that includes many
sources. What a source declares in unnamed namespaces gets the source's number there, so that no two of them meet. A
source that can't stand in such a unit is checked alone.
"""

import os
import re
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor

from .model import ParseError
from .tree import CORE

FLAGS = ["-x", "c++", "-std=c++20"]
FINDING = re.compile(r"^(.+?):(\d+):\d+: (?:error|warning): (.*)$")
CANNOT = "clang-tidy can't check it"
CHATTER = re.compile(r"^(\d+ (warnings?|errors?)( and \d+ errors?)? (treated as errors|generated)\.?"
                     r"|Suppressed \d+ warnings.*|Use -header-filter=.*|)$")


def check(tree):
    try:
        private_names = tree.core().private_names
    except ParseError as error:
        return [error.finding]
    sources = sorted(tree.files_in(*CORE, endings=(".cpp",)), key=lambda path: -len(tree.read(path)))
    share = min(os.cpu_count(), len(sources))
    with tempfile.TemporaryDirectory() as scratch, ThreadPoolExecutor(os.cpu_count()) as pool:
        units = list(pool.map(lambda group: _Unit(tree, private_names, scratch, group).run(),
                              [sources[first::share] for first in range(share)]))
        wrong = [finding for findings, _ in units for finding in findings]
        alone = [path for _, refused in units for path in refused]
        # This one looks at the file alone that clang-tidy is called with.
        using = [path for path in sources
                 if path not in alone and re.search(r"^ *using [\w:]+::\w+;", tree.read(path), re.M)]
        jobs = [(path, None) for path in alone] + [(path, "-*,misc-unused-using-decls") for path in using]
        for findings in pool.map(lambda job: _run(tree, *job), jobs):
            wrong += findings
    return sorted(set(wrong))


class _Unit:
    """Sources that are checked in one go."""

    def __init__(self, tree, private_names, scratch, sources):
        self.tree = tree
        self.private_names = private_names
        self.scratch = scratch
        self.sources = sources

    def run(self):
        """Findings, and the sources that have to be checked alone."""
        refused = []
        sources = list(self.sources)
        while sources:
            findings = _run(self.tree, self._write(sources))
            broken = {path for path, _, text in findings if "[clang-diagnostic-error" in text or CANNOT in text}
            if not broken:
                return findings, refused
            alone = [path for path in sources if path in broken] or sources
            refused += alone
            sources = [path for path in sources if path not in alone]
        return [], refused

    def _write(self, sources):
        name = os.path.join(self.scratch, f"unit{id(self)}.cpp")
        with open(name, "w", encoding="utf-8") as file:
            # First, so that the names of the headers are none of those that change.
            file.writelines(f'#include "{path}"\n' for path in self.tree.files_in(*CORE, endings=(".h",)))
            for number, path in enumerate(sources):
                names = sorted(each for each in self.private_names[path] if re.fullmatch(r"\w+", each))
                file.writelines(f"#define {each} {each}_{number}\n" for each in names)
                file.write(f'#include "{path}"  // NOLINT\n')
                file.writelines(f"#undef {each}\n" for each in names)
        return name


def _run(tree, path, checks=None):
    command = ["clang-tidy", "--quiet", f"--config-file={tree.root}/.clang-tidy",
               rf"--header-filter=/({'|'.join(CORE)})/[^/]*\.(h|cpp)$"]
    if checks:
        command.append(f"--checks={checks}")
    result = subprocess.run(command + [path, "--"] + FLAGS + ["-I", tree.root], cwd=tree.root, capture_output=True,
                            text=True)
    findings = []
    for line in result.stdout.splitlines():
        found = FINDING.match(line)
        if found:
            name, number, text = found.groups()
            name = os.path.relpath(os.path.join(tree.root, name), tree.root)
            findings.append((name, int(number), re.sub(r"(\w)_\d+\b", r"\1", text) if name != path else text))
    complaints = [line for line in result.stderr.splitlines() if not CHATTER.match(line)]
    if (result.returncode != 0 or complaints) and not findings:
        findings.append((path, 1, f"{CANNOT}, status {result.returncode}: {' '.join(complaints)[-300:]}"))
    return findings
