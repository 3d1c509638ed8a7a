"""Whether each rule finds the faults that were made for it, and finds nothing where there is none."""

import contextlib
import os
import re
import shutil
import tempfile

from . import design, dumps, frames, samples, sources, stretches, tidy
from .model import ParseError
from .tree import CORE, Tree


class Score:
    def __init__(self):
        self.passed = 0
        self.failed = 0

    def expect(self, title, found, expected):
        """Findings without their reasons against the places where they must be."""
        places = sorted((path, line) for path, line, _ in found)
        if places == sorted(expected):
            self.passed += 1
            print(f"ok  {title}")
            return
        self.failed += 1
        print(f"FAIL self-test of {title}: tools/checks/self_test.py:1: "
              f"found {places}, but the faults are at {sorted(expected)}")
        for finding in found:
            print(f"      {finding}")


@contextlib.contextmanager
def sample_tree(files):
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            os.makedirs(os.path.join(root, os.path.dirname(path)), exist_ok=True)
            with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                file.write(text)
        yield Tree(root)


def run(root):
    score = Score()
    _text_rules(score, root)
    _rules_of_the_core(score, root)
    _tidy(score, root)
    print(f"{score.passed} passed, {score.failed} failed")
    return score.failed == 0


def _text_rules(score, root):
    with open(os.path.join(root, ".clang-format"), encoding="utf-8") as file:
        style = file.read()
    cases = [
        ("format", sources.check_format, {"ads/a.cpp": "int  Two() {return 2;}\n", "tests/b.cpp": "// x\nint  x;\n"},
         [("ads/a.cpp", 1), ("tests/b.cpp", 2)]),
        ("format", sources.check_format, {"ads/a.cpp": "int Two() { return 2; }\n"}, []),
        ("format, without a style", sources.check_format,
         {"ads/a.cpp": "int A() { return 2; }\n", ".clang-format": "?"},
         [(".clang-format", 1)]),
        ("includes", sources.check_includes,
         {"platform/a.h": "#include <vector>\n#include <windows.h>\n", "ads/b.cpp": '\n#include "toolbar/c.h"\n',
          "platform/desk/d.cpp": ' # include "ads/b.h"\n', 
          "toolbar/c.h": '#include "ads/b.h"\n#include <sys/types.h>\n'},
         [("platform/a.h", 2), ("ads/b.cpp", 2), ("platform/desk/d.cpp", 1), ("toolbar/c.h", 2)]),
        ("includes", sources.check_includes,
         {"platform/a.h": "#include <vector>\n", "toolbar/c.h": '#include "platform/a.h"\n#include "toolbar/d.h"\n',
          "platform/desk/d.cpp": '#include <gif_lib.h>\n#include "platform/a.h"\n'}, []),
        ("line-bases", sources.check_line_bases,
         {"ads/a.cpp": _module("Sample", "") + "\n" * 90, "ads/b.cpp": _module("Sample", ", 50")}, [("ads/b.cpp", 2)]),
        ("line-bases", sources.check_line_bases,
         {"ads/a.cpp": _module("Sample", ""), "ads/b.cpp": _module("Sample", ", 50"),
          "ads/c.cpp": _module("Other", "")}, []),
        ("listed", sources.check_listed,
         {"ads/deeper/a.cpp": "", "new/b.cpp": "", "ads/c.cpp": "", "tests/x/d.cpp": ""},
         [("ads/deeper/a.cpp", 1), ("new/b.cpp", 1)]),
        ("listed", sources.check_listed, {"ads/c.cpp": "", "tests/x/d.cpp": "", "build/e/f.cpp": ""}, []),
        ("size", sources.check_size, {"ads/a.h": "\n" * 601, "tests/b.cpp": "\n" * 600}, [("ads/a.h", 601)]),
        ("size", sources.check_size, {"ads/a.h": "\n" * 600}, []),
        ("design", design.check, {**samples.DESIGN, "docs/design.md": samples.PAGE}, []),
        ("design, of a page with faults", design.check, {**samples.DESIGN, "docs/design.md": samples.PAGE_WITH_FAULTS},
         [("docs/design.md", 1), ("docs/design.md", 5), ("docs/design.md", 6), ("docs/design.md", 7), ("docs/design.md", 7),
          ("ads/a.cpp", 1)]),
        ("design, without the page", design.check, {}, [("docs/design.md", 1)]),
    ]
    for name, rule, files, expected in cases:
        with sample_tree({".clang-format": style, **files}) as tree:
            title = f"{name}: {'a fault' if expected else 'a clean sample'}"
            score.expect(title, rule(tree), expected)


def _module(name, base):
    return (f'constexpr ModuleInfo kModuleInfo{{u"{name}", nullptr}};\n'
            f"constexpr ModuleFile kModule{{&kModuleInfo{base}}};\n")


def _rules_of_the_core(score, root):
    with sample_tree({"ads/Sample.h": samples.HEADER, "ads/sample.cpp": samples.SOURCE}) as tree:
        _copy_headers(root, tree.root)
        core = tree.core()
        # The copied headers hold the frame itself and not faults; what is found there would be the real tree's.
        rules = {
            "frames": lambda: frames.check(core, samples.FRAMELESS, samples.UNCAUGHT, samples.RAISING_PROCEDURES),
            "stretches": lambda: stretches.check(core),
            "locals": lambda: dumps.check(core, samples.LOCALS),
        }
        for name, rule in rules.items():
            found = [finding for finding in rule() if not finding[0].startswith("foundation/")]
            stale = [finding for finding in found if finding[0].startswith("tools/")]
            for path, text in (("ads/Sample.h", samples.HEADER), ("ads/sample.cpp", samples.SOURCE)):
                for number, line in enumerate(text.splitlines(), 1):
                    here = [finding for finding in found if finding[:2] == (path, number)]
                    if line.endswith(f"//! {name}"):
                        score.expect(f"{name}: {line.split('//!')[0].strip()}", here[:1], [(path, number)])
                        found = [finding for finding in found if finding not in here]
            score.expect(f"{name}: exceptions of no use", stale, [stale[0][:2] if stale else ("", 0)] *
                         samples.STALE.get(name, 0))
            score.expect(f"{name}: the clean lines", [finding for finding in found if finding not in stale], [])
    with sample_tree({"ads/broken.cpp": "int Two() { return two; }\n"}) as tree:
        try:
            tree.core()
            found = []
        except ParseError as error:
            found = [error.finding]
        score.expect("the rules of the core: a source that doesn't compile", found, [("ads/broken.cpp", 1)])


def _copy_headers(root, to):
    for path in Tree(root).files_in(*CORE[:2], endings=(".h",)):
        os.makedirs(os.path.join(to, os.path.dirname(path)), exist_ok=True)
        shutil.copy(os.path.join(root, path), os.path.join(to, path))


def _tidy(score, root):
    with open(os.path.join(root, ".clang-tidy"), encoding="utf-8") as file:
        options = file.read()
    private = "namespace {\nint kept = 1;\nint Kept() { return kept; }\n}\nint "
    clean = {"ads/a.cpp": private + "A() { return Kept(); }\n", "ads/b.cpp": private + "B() { return Kept(); }\n",
             "ads/c.h": "#pragma once\ninline int C(int x) { return x; }\n", "ads/c.cpp": '#include "ads/c.h"\n'}
    twice = "(int x) {\n  return x == x ? 1 : 2;\n}\n"
    cases = [
        ("a clean sample", clean, []),
        ("a fault in a source", {**clean, "ads/d.cpp": "int D" + twice}, [("ads/d.cpp", 2)]),
        ("a fault in a header", {**clean, "ads/c.h": "#pragma once\ninline int C" + twice}, [("ads/c.h", 3)]),
        ("a name of no use", {**clean, "ads/d.cpp": "namespace n {\nint D();\n}\nusing n::D;\n"}, [("ads/d.cpp", 4)]),
        ("a source that doesn't compile", {**clean, "ads/d.cpp": "int D() { return d; }\n"}, [("ads/d.cpp", 1)]),
        ("sources that can't stand together, and a fault",
         {**clean, "ads/d.cpp": "#define A B\nint D() { return 2; }\n",
          "ads/e.cpp": "int B();\n#undef A\nint E" + twice},
         [("ads/e.cpp", 4)]),
        ("options that can't be read", {**clean, ".clang-tidy": "Checks: [\n"}, None),
    ]
    for title, files, expected in cases:
        with sample_tree({".clang-tidy": options, **files}) as tree:
            found = tidy.check(tree)
            if expected is None:
                expected = [finding[:2] for finding in found if re.match(tidy.CANNOT, finding[2])] or [("", 0)]
            score.expect(f"clang-tidy: {title}", found, expected)
