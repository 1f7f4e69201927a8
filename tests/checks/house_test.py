#!/usr/bin/env python3
"""Gives the house check little trees with one fault each, and one without."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).with_name("house.py")
WORD = "specific" + "ation"  # in two pieces, as this file is checked as well

CASES = {
    "a long file": ({"src/a.cpp": "\n" * 501}, "src/a.cpp: 501 lines, more than 500"),
    "a full folder": ({f"src/a/{i}.h": "" for i in range(41)}, "src/a: 41 files, more than 40"),
    "a room without a welcome": ({"src/a/x.h": ""}, "src/a/README.md: 0 lines; at most 15"),
    "a long welcome": ({"src/a/README.md": "\n" * 16}, "src/a/README.md: 16 lines; at most 15"),
    "a reference": ({"docs/a.md": "see Part" + " 4.1\n"}, "docs/a.md:1: refers to a text"),
    "a word": ({"tests/a.cpp": f"\n// The {WORD.upper()} says\n"}, "tests/a.cpp:2: refers to a text"),
}
SOUND = {
    "src/a.cpp": "\n" * 500,
    "src/a/README.md": "\n" * 15,
    "src/form.ui": "\n" * 600,
    "DEVELOPERS.md": WORD,
    "build/x.txt": WORD,
    "picture.png": b"\xff\xfe",
    "b.md": "Part 4\n",
} | {f"src/a/{i}.h": "" for i in range(39)}


def check(tree):
    with tempfile.TemporaryDirectory() as folder:
        for path, content in tree.items():
            file = Path(folder) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_bytes(content if isinstance(content, bytes) else content.encode())
        outcome = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True, check=False)
        return outcome.returncode, outcome.stdout + outcome.stderr


class House(unittest.TestCase):
    def test_each_fault_is_named(self):
        for name, (tree, message) in CASES.items():
            with self.subTest(name):
                outcome, words = check(tree)
                self.assertEqual(outcome, 1)
                self.assertIn(message, words)

    def test_a_sound_tree_passes(self):
        self.assertEqual(check(SOUND), (0, "\n"))


if __name__ == "__main__":
    unittest.main()
