"""The key of an error is module, number and line; so each line belongs to one statement of one procedure.

A stretch that two statements run, or a lambda with STEPs that two run, would give errors of different statements one
key: whoever ignores one for good would silence the other.
"""

from .graph import Graph
from .model import in_procedure_folders


def check(core):
    graph = Graph(core)
    wrong = []
    for function in core.functions.values():
        if not in_procedure_folders(function) or not (function.kind == "stretch" or function.steps):
            continue
        wrong += _lines(function)
        if function.kind == "stretch" or function.kind == "lambda":
            callers = sorted((caller.file, line) for caller, line in graph.callers(function))
            if len(callers) != 1:
                places = ", ".join(f"{file}:{line}" for file, line in callers) or "nobody"
                wrong.append((function.file, function.line,
                              f"{function.name} must be run from one place, so that its lines are one procedure's; "
                              f"it is run by {places}"))
        if function.kind == "plain" and any("Frame &" in type for _, type, _ in function.parameters):
            wrong.append((function.file, function.line, f"{function.name} takes a frame: begin it with STRETCH"))
    return wrong


def _lines(function):
    return [(function.file, line, f"{function.name}: two steps share this line and so the key of their errors")
            for line in sorted(set(function.steps)) if function.steps.count(line) > 1]
