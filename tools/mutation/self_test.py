"""Runs the tool over a small source whose tests have gaps that are known."""

import os
import shutil

FILES = ["tools/mutation/sample/sample.cpp", "tools/mutation/sample/sample.h"]

# What has to come out: the function, the kind, the words that begin what was done, the outcome.
EXPECTED = [
    ("Touch", "assign", "touched += 1 dropped", "survived"),
    ("Touch", "constant", "1 moved by one", "survived"),
    ("Price", "negate", "pieces < 2 negated", "failed"),
    ("Price", "compare", "pieces < 2 moved to <=", "survived"),
    ("Price", "constant", "2 moved by one", "survived"),
    ("Price", "constant", "0 moved by one", "failed"),
    ("Price", "constant", "kEach moved by one", "failed"),
    ("SizeOf", "label", "case 's' moved by one", "failed"),
    ("SizeOf", "label", "case 'x' moved by one", "survived"),
    ("SizeOf", "constant", "Size::kSmall moved by one", "failed"),
    ("SizeOf", "constant", "Size::kLarge moved by one", "failed"),
    ("SizeOf", "constant", "Size::kLarge moved by one", "unreached"),
    ("Rounds", "negate", "isQuick negated", "failed"),
    ("Rounds", "constant", "1 moved by one", "failed"),
    ("Rounds", "constant", "kSpare moved by one", "unreached"),
    ("Rounds", "constant", "0 moved by one in int rounds", "failed"),
    ("Rounds", "negate", "left > 0 negated", "failed"),
    ("Rounds", "compare", "left > 0 moved to >=", "failed"),
    ("Rounds", "constant", "0 moved by one in while", "failed"),
    ("Rounds", "assign", "--left dropped", "timeout"),
    ("Rounds", "assign", "++rounds dropped", "failed"),
    ("Count", "assign", "counted = 0 dropped", "survived"),
    ("Count", "constant", "0 moved by one", "survived"),
    ("Count", "call", "Touch() dropped", "survived"),
    ("Count", "assign", "counted = Forgotten() dropped", "survived"),
    ("Forgotten", "constant", "1 moved by one", "survived"),
]


def link(sources, objects, program):
    return f"clang++ -o {program} {' '.join(objects)} sample_test.o -lgtest -lpthread", ["sample_test.o"], []


def self_test(root, hold, Results):
    from build import Build

    class SampleBuild(Build):
        def write_ninja(self, sources):
            super().write_ninja(sources)
            with open(f"{self.place}/build.ninja", "a", encoding="utf-8") as file:
                file.write("build sample_test.o: compile_runner "
                           f"{self.root}/tools/mutation/sample/sample_test.cpp\n")

    place = f"{root}/build/mutate-sample"
    shutil.rmtree(place, ignore_errors=True)
    os.makedirs(place)
    build = SampleBuild(root, place, place, FILES, FILES, ["-std=c++20", f"-I{root}"], link, 2, lambda text: None)
    points = build.make()
    results = Results(f"{place}/results.jsonl")
    told = []

    class Silent:
        def __init__(self, word, total):
            pass

        def __call__(self, note=""):
            pass

    hold(build, points, results, 2, False, progress=Silent, tell=told.append)
    missing = []
    left = [(p["function"], p["kind"], p["what"], results.of[p["key"]]["outcome"]) for p in points]
    for function, kind, what, outcome in EXPECTED:
        match = next((one for one in left if one[:2] == (function, kind) and one[2].startswith(what) and
                      one[3] == outcome), None)
        if match:
            left.remove(match)
        else:
            missing.append((function, kind, what, outcome))
    faults = [f"expected, but not found: {one}" for one in missing]
    faults += [f"found, but not expected: {one}" for one in left]
    faults += [f"doesn't compile: {key}" for key in build.refused]
    if not any("ThatFailsByItself" in line for line in told):
        faults.append("nothing is told of the test that fails by itself")
    for fault in faults:
        print(f"FAIL the mutation run's sample: {fault}")
    print(f"{len(EXPECTED) - len(missing)} passed, {len(faults)} failed")
    return not faults
