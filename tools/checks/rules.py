"""The house rules by name. Each takes a tree and gives (file, line, reason) for each place where it is broken."""

from . import design, dumps, frames, sources, stretches, tidy

TIDY = "clang-tidy"

RULES = {
    "format": sources.check_format,
    "includes": sources.check_includes,
    "line-bases": sources.check_line_bases,
    "listed": sources.check_listed,
    "size": sources.check_size,
    "design": design.check,
    "frames": lambda tree: frames.check(tree.core()),
    "stretches": lambda tree: stretches.check(tree.core()),
    "locals": lambda tree: dumps.check(tree.core()),
    TIDY: tidy.check,
}
