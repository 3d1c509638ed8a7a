"""Builds the test program with all mutants inside: the rewritten sources in place of the core's own."""

import hashlib
import json
import os
import re
import shlex
import subprocess
from concurrent.futures import ProcessPoolExecutor

import points as finding
from rewrite import rewritten

PER_FILE = 2000  # numbers; so an edit in one file leaves the others' alone


def digest(*texts):
    return hashlib.sha1("\0".join(texts).encode()).hexdigest()


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def read_bytes(path):
    with open(path, "rb") as file:
        return file.read()


def write_if_changed(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    if not os.path.exists(path) or read(path) != text:
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)


def load(path, otherwise):
    return json.loads(read(path)) if os.path.exists(path) else otherwise


class Build:
    """`files`: what is mutated. `all_files`: what may be mutated at all; of these, a source is compiled where it is
    mutated or includes a mutated header. `flags`: of the compiler. `link`: from the compiled sources, the objects and the
    program's path it makes the command that links, and tells the files of the tests and what else goes in. `cache`: the
    folder that several builds share; `place`: the one of this build."""

    def __init__(self, root, cache, place, files, all_files, flags, link, jobs, say):
        self.root, self.cache, self.place, self.files, self.all_files = root, cache, place, files, all_files
        self.flags, self.link, self.jobs, self.say = flags, link, jobs, say
        self.tree = f"{place}/tree"
        self.program = f"{place}/mutants"
        self.tests = ""  # a digest of them: a survivor has to survive each new one
        self.refused = load(f"{place}/refused.json", {})  # mutants that the compiler won't have: key to message

    # --- The points of all files

    def points(self):
        code = digest(*[read(f"{os.path.dirname(finding.__file__)}/{name}") for name in ("points.py",)])
        # What stands in the headers decides what a source's expressions are.
        headers = digest(*[read(f"{self.root}/{file}") for file in self.all_files if file.endswith(".h")])
        wanted, known = {}, {}
        for file in self.files:
            cache = f"{self.cache}/points/{file}.json"
            key = digest(code, headers, read(f"{self.root}/{file}"))
            cached = load(cache, {})
            if cached.get("of") == key:
                known[file] = cached["points"]
            else:
                wanted[file] = (cache, key)
        if wanted:
            self.say(f"looking for mutants in {len(wanted)} files")
        flags = self.flags + ["-x", "c++", "-w", "-ferror-limit=3"]
        with ProcessPoolExecutor(self.jobs) as pool:
            futures = {file: pool.submit(finding.points_of, self.root, file, flags) for file in wanted}
            for file, future in futures.items():
                found, errors = future.result()
                if errors:
                    raise SystemExit(f"tools/mutate: clang doesn't understand {file}: {errors[0]}")
                cache, key = wanted[file]
                write_if_changed(cache, json.dumps({"of": key, "points": found}))
                known[file] = found
        self.number(known)
        return {file: known[file] for file in self.files}

    def number(self, known):
        path = f"{self.cache}/numbers.json"
        bases = load(path, {})
        for file in self.files:
            if file not in bases:
                bases[file] = max(bases.values(), default=1 - PER_FILE) + PER_FILE
            if len(known[file]) > PER_FILE:
                raise SystemExit(f"tools/mutate: {file} has more than {PER_FILE} mutants")
            for index, point in enumerate(known[file]):
                point["number"] = bases[file] + index
        write_if_changed(path, json.dumps(bases))

    # --- The program

    def make(self):
        """Builds, and leaves out mutants that the compiler refuses, until it succeeds. Returns the points in it."""
        all_points = self.points()
        keys = {point["key"] for points in all_points.values() for point in points}
        self.refused = {key: why for key, why in self.refused.items() if key in keys}
        self.write_ninja(self.touched([file for file, points in all_points.items() if points]))
        for attempt in range(20):
            for file, points in all_points.items():
                inside = [point for point in points if point["key"] not in self.refused]
                write_if_changed(f"{self.tree}/{file}", rewritten(read(f"{self.root}/{file}"), inside))
            if attempt == 0:
                self.say("building")
            made = subprocess.run(["ninja", "-C", self.place, "-k", "0", "-j", str(self.jobs)], text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            if made.returncode == 0:
                write_if_changed(f"{self.place}/refused.json", json.dumps(self.refused, indent=1))
                return [p for points in all_points.values() for p in points if p["key"] not in self.refused]
            if not self.refuse(made.stdout, all_points):
                raise SystemExit(f"tools/mutate: the build fails, and not for a mutant:\n{made.stdout[-6000:]}")
            self.say(f"left out so far because they don't compile: {len(self.refused)} mutants")
        raise SystemExit("tools/mutate: mutants keep failing to compile")

    def refuse(self, log, all_points):
        places = {}
        for match in re.finditer(rf"^{re.escape(self.tree)}/([^:\n]+):(\d+):\d+: +(?:fatal )?error: (.*)$", log, re.M):
            places.setdefault((match[1], int(match[2])), match[3])
        if not places:  # an error in a header that a line of ours has brought about
            for match in re.finditer(rf"^{re.escape(self.tree)}/([^:\n]+):(\d+):\d+: +note: ", log, re.M):
                places.setdefault((match[1], int(match[2])), "an error in what the line uses")
        before = len(self.refused)
        for (file, line), message in places.items():
            text = read(f"{self.root}/{file}")
            for point in all_points.get(file, []):
                last = text.count("\n", 0, point["end"]) + 1
                if point["line"] <= line <= last and point["key"] not in self.refused:
                    self.refused[point["key"]] = message
        return len(self.refused) > before

    def touched(self, mutated):
        """The sources that are mutated, or include what is, however far away."""
        included = {}
        for file in self.all_files:
            included[file] = re.findall(r'^#include "([^"]+)"', read(f"{self.root}/{file}"), re.M)
        reach = set(mutated)
        grown = True
        while grown:
            more = {file for file in self.all_files if file not in reach and reach.intersection(included[file])}
            reach |= more
            grown = bool(more)
        return [file for file in self.all_files if file in reach and file.endswith(".cpp")]

    def write_ninja(self, sources):
        here = os.path.dirname(os.path.abspath(__file__))
        # A function that ends without its return would run on into the next one.
        flags = ["-O1", "-g0", "-w", "-Wno-c++11-narrowing", "-fsanitize=return", "-fsanitize-trap=return",
                 "-include", f"{here}/mutants.h", f"-I{self.tree}"] + self.flags
        lines = ["rule compile", f"  command = clang++ {shlex.join(flags)} -MMD -MF $out.d -o $out -c $in", "  deps = gcc",
                 "  depfile = $out.d", "rule compile_runner",
                 f"  command = clang++ -O1 -std=c++20 -I{self.root} -MMD -MF $out.d -o $out -c $in", "  deps = gcc",
                 "  depfile = $out.d", f"build runner.o: compile_runner {here}/runner.cpp"]
        objects = ["runner.o"]
        for source in sources:
            objects.append(f"objects/{source}.o")
            lines.append(f"build objects/{source}.o: compile {self.tree if source in self.files else self.root}/{source}")
        command, tests, others = self.link(sources, [f"{self.place}/{name}" for name in objects], self.program)
        self.tests = digest(*[hashlib.sha1(read_bytes(path)).hexdigest() for path in tests if os.path.exists(path)])[:16]
        lines += ["rule link", f"  command = {command.replace('$', '$$')}",
                  f"build mutants: link {' '.join(objects)} | {' '.join(tests + others)}", "default mutants", ""]
        write_if_changed(f"{self.place}/build.ninja", "\n".join(lines))
