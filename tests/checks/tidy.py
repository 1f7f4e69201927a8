#!/usr/bin/env python3
"""Fails when clang-tidy has something to say about the sources that changed (or about all of them).

Usage: tidy.py ROOT BUILD [--all]. BUILD is a built tree with compile_commands.json. Changed is what differs from the last
commit, and what the last commit changed; a header stands for the source file beside it.
"""

import json
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path


def changed(root):
    """Paths below the root, or nothing where the tree came without its history."""
    names = set()
    for question in (["diff", "--name-only", "HEAD"], ["diff", "--name-only", "HEAD~1", "HEAD"],
                     ["ls-files", "--others", "--exclude-standard"]):
        answer = subprocess.run(["git", "-C", root, *question], capture_output=True, text=True, check=False)
        names.update(answer.stdout.split("\n") if answer.returncode == 0 else [])
    return {root / name for name in names if name}


def sources(root, build, everything):
    known = {Path(entry["file"]) for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))}
    own = {file for file in known if file.is_relative_to(root) and not file.is_relative_to(root / "build")}
    if everything:
        return sorted(own)
    wanted = changed(root)
    return sorted(file for file in own if file in wanted or file.with_suffix(".h") in wanted)


def fault(build, file):
    outcome = subprocess.run(["clang-tidy", "--quiet", "-p", build, file], capture_output=True, text=True, check=False)
    return outcome.stdout if outcome.returncode != 0 else ""


def main(root, build, everything):
    files = sources(root, build, everything)
    print(f"{len(files)} files")
    with ThreadPoolExecutor(os.cpu_count()) as workers:
        faults = [found for found in workers.map(lambda file: fault(build, file), files) if found]
    told = dict.fromkeys(line for found in faults for line in found.splitlines() if " error: " in line)
    print("\n".join(told))  # a fault of a header once, and not for each file that includes it
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve(), "--all" in sys.argv[3:]))
