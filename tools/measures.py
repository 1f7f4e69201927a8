#!/usr/bin/env python3
"""Counts what docs/architecture.md promises of the tree: measures.py [ROOT].

Cycles and directions come from the checks of the tree; lines are those that are not blank; the length of a function is that of
its body, without the lines of its braces.
"""

import re
import statistics
import sys
from pathlib import Path

CODE = {".h", ".cpp", ".sql", ".sqlpart"}
TESTS = {".h", ".cpp", ".opd"}
OPENING = re.compile(r"\)(\s*(const|noexcept|override|final|try|-> [\w:<>]+))*\s*(:.*)?\{$|^\s+[:,] .*\{$")
STATEMENT = re.compile(r"^\s*(\}\s*)?(if|else|for|while|switch|catch|do|return|struct|class|namespace|enum)\b|\[[^\]]*\]\s*(\(|\{|mutable)|=\s*\{$")


def non_blank(file):
    return sum(1 for line in file.read_text(encoding="utf-8").splitlines() if line.strip())


def total(folders, suffixes):
    return sum(non_blank(file) for folder in folders for file in folder.rglob("*") if file.suffix in suffixes)


def indent_of(line):
    return len(line) - len(line.lstrip())


def first_line(lines, opening):
    """The line in which the declaration begins whose body opens in the given one."""
    number, open_brackets = opening, 0
    while True:
        line = lines[number]
        open_brackets += line.count(")") - line.count("(")
        initializes = line.lstrip().startswith(":") or indent_of(line) % 4 != 0
        if (open_brackets <= 0 and not initializes) or number == 0:
            return number
        number -= 1


def function_lengths(file):
    lines = file.read_text(encoding="utf-8").splitlines()
    start = None
    for number, line in enumerate(lines):
        if start is None and OPENING.search(line) and not STATEMENT.search(line):
            start = number, " " * indent_of(lines[first_line(lines, number)]) + "}"
        elif start is not None and line.startswith(start[1]):
            yield number - start[0] - 1
            start = None


def main(root):
    code = total([root / "src", root / "database"], CODE)
    tests = total([root / "tests"], TESTS)
    print(f"tests : code  {tests} : {code} = {tests / code:.2f}")
    lengths = sorted(length for file in (root / "src").rglob("*.cpp") for length in function_lengths(file))
    print(f"functions  {len(lengths)}, median {statistics.median(lengths):.0f}, p90 {lengths[len(lengths) * 9 // 10]}, "
          f"over 60 lines {sum(length > 60 for length in lengths)}")


if __name__ == "__main__":
    main(Path(sys.argv[1] if len(sys.argv) > 1 else "."))
