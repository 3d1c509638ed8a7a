"""Runs tests against mutants, in several processes that fork."""

import hashlib
import json
import os
import queue
import shutil
import subprocess
import threading


class Runner:
    """One test program that waits for orders; its temporary files are its own."""

    def __init__(self, program, place, number):
        self.folder = f"{place}/worker{number}"
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(f"{self.folder}/tmp")
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                        cwd=self.folder, stderr=subprocess.DEVNULL,
                                        env={**os.environ, "TMPDIR": f"{self.folder}/tmp"})

    def ask(self, order):
        self.process.stdin.write(order + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            raise RuntimeError(f"the test program ended at the order: {order[:200]}")
        return answer.split()

    def tests(self):
        names = self.ask("list")
        while names[-1] != ".":
            names += self.process.stdout.readline().split()
        return names[:-1]

    def close(self):
        self.process.stdin.close()
        self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


def in_parallel(program, place, jobs, items, work):
    """work(runner, item) for each item; the first exception ends all."""
    waiting = queue.SimpleQueue()
    for item in items:
        waiting.put(item)
    failures = []

    def serve(number):
        runner = Runner(program, place, number)
        try:
            while not failures:
                try:
                    item = waiting.get_nowait()
                except queue.Empty:
                    return
                work(runner, item)
        except Exception as failure:  # told by the thread that waits
            failures.append(failure)
        finally:
            runner.close()

    threads = [threading.Thread(target=serve, args=(number,), daemon=True) for number in range(jobs)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if failures:
        raise failures[0]


class Probe:
    """What each test comes past, and how long it takes. Kept until the program changes."""

    def __init__(self, program, place, jobs, say, progress):
        with open(program, "rb") as file:
            self.build = hashlib.sha1(file.read()).hexdigest()[:16]
        path = f"{place}/probe.json"
        known = {}
        if os.path.exists(path):
            with open(path, encoding="utf-8") as file:
                known = json.load(file)
        if known.get("build") != self.build:
            known = {"build": self.build, "tests": self.look(program, place, jobs, progress)}
            with open(path, "w", encoding="utf-8") as file:
                json.dump(known, file)
        self.tests = known["tests"]  # name: [outcome, microseconds, numbers]
        self.reaching = {}
        self.unusable = []
        for name, (outcome, _, numbers) in self.tests.items():
            if outcome != "passed":
                self.unusable.append(name)
            else:
                for number in numbers:
                    self.reaching.setdefault(number, []).append(name)
        if self.unusable:
            say(f"not used, for they fail by themselves: {', '.join(self.unusable)}")

    def look(self, program, place, jobs, progress):
        first = Runner(program, place, "")
        names = first.tests()
        first.close()
        tests = {}
        bar = progress("probing", len(names))

        def work(runner, name):
            answer = runner.ask(f"probe {name}")
            tests[name] = [answer[0], int(answer[1]), [int(number) for number in answer[2:]]]
            bar()

        in_parallel(program, place, jobs, names, work)
        return {name: tests[name] for name in names}

    def microseconds(self, name):
        return self.tests[name][1]

    def limit(self, name):
        return self.microseconds(name) * 5 // 1000 + 1500


class Run:
    """Holds mutants against their tests; tells each result as it is known."""

    def __init__(self, program, place, jobs, probe, tell):
        self.program, self.place, self.jobs, self.probe, self.tell = program, place, jobs, probe, tell
        self.killers = {}  # function to the tests that killed there, the last one first; the same for each file

    def order(self, point):
        tests = sorted(self.probe.reaching.get(point["number"], []), key=self.probe.microseconds)
        reaching = set(tests)
        first = {}
        for place in self.places(point):
            first.update({name: 0 for name in self.killers.get(place, []) if name in reaching})
        return [*first] + [name for name in tests if name not in first]

    @staticmethod
    def places(point):
        return (point["file"], point["function"]), point["file"]

    def run(self, points):
        in_parallel(self.program, self.place, self.jobs, points, self.hold)

    def hold(self, runner, point):
        tests = self.order(point)
        spent = 0
        if not tests:
            answer = ["unreached"]
        else:
            limits = " ".join(f"{name}:{self.probe.limit(name)}" for name in tests)
            spent, *answer = runner.ask(f"run {point['number']} {limits}")
        test = answer[1] if len(answer) > 1 else ""
        if test and self.probe.microseconds(test) < 1000000:
            for place in self.places(point):
                liked = self.killers.setdefault(place, [])
                if test in liked:
                    liked.remove(test)
                liked.insert(0, test)
                del liked[8:]
        self.tell(point, answer[0], test, int(spent) // 1000, len(tests))
