#!/usr/bin/env python3
"""Gives the include check little trees with one fault each, and expects it to say which."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).with_name("include_direction.py")

# name of the case: (file, what it includes, what the check says)
REFUSED = {
    "the ground knows nothing above": ("src/base/os/a.h", "com/object.h", "base must not include com/object.h"),
    "rooms side by side know nothing of each other": ("src/ado/a.h", "com/object.h", "ado must not include com/object.h"),
    "a model knows no script": ("src/ui/a.h", "script/player.h", "ui must not include script/player.h"),
    "session does not reach data": ("src/session/a.h", "data/rows.h", "session must not include data/rows.h"),
    "data does not reach search": ("src/data/a.h", "search/find.h", "data must not include search/find.h"),
    "search does not reach registration": ("src/search/a.h", "registration/form.h", "search must not include registration/form.h"),
    "reports do not reach search": ("src/reports/a.h", "search/find.h", "reports must not include search/find.h"),
    "registration does not reach the component": ("src/registration/a.h", "component/init_dll.h", "registration must not include component/init_dll.h"),
    "registration does not reach adapters": ("src/registration/a.h", "adapters/sqlite/provider.h", "registration must not include adapters/sqlite/provider.h"),
    "the second component knows no session": ("src/codesearch/a.h", "session/session.h", "codesearch must not include session/session.h"),
    "the component does not reach the host": ("src/component/a.h", "host/commands.h", "component must not include host/commands.h"),
    "the component takes only public headers": ("src/component/a.h", "adapters/qt/views/grid.h", "component must not include adapters/qt/views/grid.h"),
    "the host sees the public face alone": ("src/host/a.cpp", "component/composition.h", "host must not include component/composition.h"),
    "the host does not reach the core": ("src/host/a.cpp", "data/rows.h", "host must not include data/rows.h"),
    "the host only makes databases": ("src/host/a.cpp", "adapters/sqlite/parser.h", "host must not include adapters/sqlite/parser.h"),
    "an adapter knows no business": ("src/adapters/qt/a.cpp", "registration/form.h", "adapters/qt must not include registration/form.h"),
    "an adapter knows no other adapter": ("src/adapters/qt/a.cpp", "adapters/sqlite/parser.h", "adapters/qt must not include adapters/sqlite/parser.h"),
    "a provider knows no window": ("src/adapters/sqlite/a.cpp", "ui/window.h", "adapters/sqlite must not include ui/window.h"),
    "the toolkit stays in its adapter": ("src/component/a.cpp", "QApplication", "Qt is not for this folder: <QApplication>"),
    "the toolkit by its module": ("src/host/a.cpp", "QtCore/qstring.h", "Qt is not for this folder: <QtCore/qstring.h>"),
    "the core's tests know no toolkit": ("tests/search/a.cpp", "QTest", "tests/search/a.cpp:1: Qt is not for this folder"),
    "the driver stays in its adapter": ("src/data/a.cpp", "sqlite3.h", "SQLite is not for this folder: <sqlite3.h>"),
    "the core does not know the system": ("src/com/a.cpp", "dlfcn.h", "src/com/a.cpp:1: the operating system is for src/base/os/ alone"),
    "nor by a folder of its headers": ("src/base/files/a.cpp", "sys/stat.h", "src/base/files/a.cpp:1: the operating system is for src/base/os/ alone"),
    "a new layer must be entered": ("src/helpers/a.h", "string", "the layer helpers is not known"),
}

ACCEPTED = [
    ("src/session/a.h", "ui/desktop.h"),
    ("src/registration/a.h", "search/find.h"),
    ("src/registration/a.h", "reports/sheet.h"),
    ("src/component/a.cpp", "adapters/sqlite/provider.h"),
    ("src/host/a.cpp", "component/init_dll.h"),
    ("src/host/a.cpp", "adapters/sqlite/create_database.h"),
    ("src/adapters/qt/a.cpp", "script/driver.h"),
    ("src/adapters/qt/a.cpp", "QApplication"),
    ("src/adapters/sqlite/a.cpp", "sqlite3.h"),
    ("src/base/os/posix/a.cpp", "unistd.h"),
    ("src/adapters/sqlite/b.cpp", "unistd.h"),
    ("tests/adapters/qt/a.cpp", "QTest"),
]


def check(tree):
    """The outcome and the words of the check for a tree of path and content."""
    with tempfile.TemporaryDirectory() as folder:
        for path, content in tree.items():
            file = Path(folder) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(content, encoding="utf-8")
        outcome = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True, check=False)
        return outcome.returncode, outcome.stdout + outcome.stderr


class IncludeDirection(unittest.TestCase):
    SOUND = {"src/base/sound.h": "#pragma once\n#include <string>\n"}

    def test_every_rule_refuses_what_breaks_it(self):
        for name, (path, included, message) in REFUSED.items():
            for form in (f'#include "{included}"\n', f"  # include <{included}>\n"):
                with self.subTest(name, form=form):
                    outcome, words = check(self.SOUND | {path: form})
                    self.assertEqual(outcome, 1)
                    self.assertIn(message, words)
                    self.assertEqual(len(words.strip().splitlines()), 1, words)

    def test_what_the_layers_allow_passes(self):
        for path, included in ACCEPTED:
            with self.subTest(path, included=included):
                self.assertEqual(check(self.SOUND | {path: f"#include <{included}>\n"}), (0, "\n"))

    def test_a_relative_include_is_followed(self):
        tree = {"src/base/a.h": '#include "../session/b.h"\n', "src/session/b.h": ""}
        outcome, words = check(tree)
        self.assertEqual(outcome, 1)
        self.assertIn("src/base/a.h:1: base must not include session/b.h", words)

    def test_a_cycle_is_told_with_its_road(self):
        tree = {
            "src/data/a.h": '#include "data/b.h"\n',
            "src/data/b.h": '#include "c.h"\n',
            "src/data/c.h": '#include "data/a.h"\n',
        }
        outcome, words = check(tree)
        self.assertEqual((outcome, words), (1, "include cycle: data/a.h -> data/b.h -> data/c.h -> data/a.h\n"))

    def test_a_circle_of_folders_is_told_with_its_includes(self):
        tree = {
            "src/data/a.h": '#include "data/one/b.h"\n',
            "src/data/one/b.h": "",
            "src/data/one/c.h": '\n#include "data/two/d.h"\n',
            "src/data/two/d.h": '#include "data/e.h"\n',
            "src/data/e.h": "",
        }
        outcome, words = check(tree)
        self.assertEqual((outcome, words), (1, "folder cycle: data -> data/one -> data/two -> data "
                                               "(src/data/a.h:1, src/data/one/c.h:2, src/data/two/d.h:1)\n"))

    def test_two_roads_to_one_header_are_no_cycle(self):
        tree = {
            "src/data/a.h": '#include "data/b.h"\n#include "data/c.h"\n',
            "src/data/b.h": '#include "data/c.h"\n',
            "src/data/c.h": "",
        }
        self.assertEqual(check(tree)[0], 0)

    def test_a_wrong_folder_is_not_taken_for_a_sound_one(self):
        self.assertEqual(check({"README.md": ""})[0], 1)


if __name__ == "__main__":
    unittest.main()
