#!/usr/bin/env python3
"""Fails when a source file or folder has grown too big to be read, or a text refers to what its readers do not have.

Usage: house.py ROOT. Prints one line per fault and exits with 1 when there is any.
"""

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

MOST_LINES = 500
MOST_FILES = 40
# Written so that this file does not find itself.
FOREIGN = re.compile(r"\bPart[ ]\d+\.\d+|specific[a]tion", re.IGNORECASE)
LAID_OUT = {".ui"}  # drawn in a form editor, read there
MAY_REFER = {"DEVELOPERS.md"}
NOT_OURS = {"build"}
MOST_WELCOME_LINES = 15


def committed(root):
    """The files under version control, or all but the built ones where the tree came without its history."""
    tracked = (root / ".git").exists() and shutil.which("git") is not None
    listing = subprocess.run(["git", "-C", root, "ls-files", "-z"], capture_output=True, check=False) if tracked else None
    if listing is not None and listing.returncode == 0:
        return [root / name for name in listing.stdout.decode().split("\0") if name]
    found = []
    for folder, folders, names in os.walk(root):
        folders[:] = [name for name in folders if name not in NOT_OURS and not name.startswith(".")]
        found += [Path(folder) / name for name in names]
    return found


def text_of(file):
    """The text of a file; empty for one that is gone or no text."""
    try:
        return file.read_text(encoding="utf-8")
    except (OSError, UnicodeDecodeError):
        return ""


def faults(root):
    files_in = {}
    for file in sorted(committed(root)):
        place = file.relative_to(root).as_posix()
        lines = text_of(file).splitlines()
        if place.startswith("src/"):
            files_in.setdefault(Path(place).parent.as_posix(), []).append(place)
            if len(lines) > MOST_LINES and file.suffix not in LAID_OUT:
                yield f"{place}: {len(lines)} lines, more than {MOST_LINES}; split it"
        for number, line in enumerate(lines, 1):
            if place not in MAY_REFER and FOREIGN.search(line):
                yield f"{place}:{number}: refers to a text that is not in this repository: {line.strip()}"
    for room in sorted({place.split("/")[1] for place in files_in if "/" in place}):
        welcome = len(text_of(root / "src" / room / "README.md").splitlines())
        if not 0 < welcome <= MOST_WELCOME_LINES:
            yield f"src/{room}/README.md: {welcome} lines; at most {MOST_WELCOME_LINES} say what the room is for"
    for folder, names in files_in.items():
        if len(names) > MOST_FILES:
            yield f"{folder}: {len(names)} files, more than {MOST_FILES}; divide it"


if __name__ == "__main__":
    found = list(faults(Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(1 if found else 0)
