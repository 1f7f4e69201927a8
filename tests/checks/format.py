#!/usr/bin/env python3
"""Fails when a source file is not formatted as .clang-format says.

Usage: format.py ROOT. Prints the first difference of each such file; `clang-format -i FILE` mends it.
"""

import subprocess
import sys
from pathlib import Path

from house import committed

SOURCES = {".h", ".cpp"}


def main(root):
    files = [file for file in committed(root) if file.suffix in SOURCES and file.exists()]
    outcome = subprocess.run(["clang-format", "--dry-run", "--Werror", "--ferror-limit=1", *files],
                             cwd=root, capture_output=True, text=True, check=False)
    print(outcome.stdout + outcome.stderr, end="")
    return outcome.returncode if files else 1


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
