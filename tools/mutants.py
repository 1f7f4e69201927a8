#!/usr/bin/env python3
"""Says how many small faults of the core the tests find: mutants.py COUNT SEED [FOLDER].

Changes one line at a time (a comparison, a condition, a constant, a call left out), builds, and runs the tests. COUNT changes
are drawn by SEED from all that can be made. The work is done in a copy of the last commit, in FOLDER (build/mutants without
it), whose build is kept for the next time. A change that no test can find because it makes no difference is to be named
where the figure is.
"""

import os
import random
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOMS = ("ui", "session", "data", "search", "reports", "registration", "component")
SWAPS = (
    (r" == ", " != "), (r" != ", " == "), (r" && ", " || "), (r" \|\| ", " && "), (r" < ", " <= "), (r" > ", " >= "),
    (r" <= ", " < "), (r" >= ", " > "), (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"if \(!", "if ("),
    (r" \+ 1\b", " + 2"), (r" - 1\b", " - 0"),
)
CALL = re.compile(r"\s+[A-Za-z_][\w.\->]*\(.*\);\n")
BESIDES_THE_CORE = ("^(check-|test-server|many-desks|database-scripts|install|package|doctor|prove-server|contract-on-server|"
                    "ServerFaults|LostServer|pictures|acceptance)")
NO_CODE = ("//", "#", "template", "case ")


def changes_of(file):
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(keepends=True)):
        if line.strip().startswith(NO_CODE) or "operator" in line:
            continue
        for pattern, other in SWAPS:
            if re.search(pattern, line):
                yield file, number, re.sub(pattern, other, line, count=1)
        if CALL.fullmatch(line) and "return" not in line:
            yield file, number, line[: len(line) - len(line.lstrip())] + ";\n"


def judged(tree, environment):
    """Whether the changed tree is found out: "no program", "killed" or "survived"."""
    run = dict(cwd=tree, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    if subprocess.run(["cmake", "--build", "--preset", "dev"], **run).returncode != 0:
        return "no program"
    tests = ["ctest", "--preset", "dev", "-j2", "-E", BESIDES_THE_CORE, "--schedule-random", "--stop-on-failure",
             "--timeout", "60"]
    try:
        return "killed" if subprocess.run(tests, **run, timeout=600).returncode != 0 else "survived"
    except subprocess.TimeoutExpired:
        return "killed"


def copy_of_last_commit(folder):
    if not folder.exists():
        subprocess.run(["git", "worktree", "add", "--quiet", "--detach", folder], check=True)
    subprocess.run(["git", "checkout", "--quiet", "--detach", subprocess.check_output(["git", "rev-parse", "HEAD"],
                                                                                      text=True).strip()],
                   cwd=folder, check=True)
    if not (folder / "build/dev/build.ninja").exists():
        subprocess.run(["cmake", "--preset", "dev"], cwd=folder, check=True, stdout=subprocess.DEVNULL)


def main(count, seed, folder):
    copy_of_last_commit(folder)
    changes = [change for room in ROOMS for file in sorted((folder / "src" / room).rglob("*.cpp"))
               for change in changes_of(file)]
    random.Random(seed).shuffle(changes)
    verdicts = {"killed": 0, "survived": 0, "no program": 0}
    with tempfile.TemporaryDirectory() as runtime:
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=runtime)
        for file, number, changed in changes[:count]:
            text = file.read_text(encoding="utf-8")
            lines = text.splitlines(keepends=True)
            was, lines[number] = lines[number], changed
            file.write_text("".join(lines), encoding="utf-8")
            try:
                verdict = judged(folder, environment)
            finally:
                file.write_text(text, encoding="utf-8")
            verdicts[verdict] += 1
            print(f"{verdict}: {file.relative_to(folder)}:{number + 1}: {was.strip()}  ->  {changed.strip()}", flush=True)
    built = verdicts["killed"] + verdicts["survived"]
    print(f"{verdicts['killed']} of {built} killed; {verdicts['no program']} made no program")


if __name__ == "__main__":
    main(int(sys.argv[1]), int(sys.argv[2]), Path(sys.argv[3] if len(sys.argv) > 3 else "build/mutants").resolve())
