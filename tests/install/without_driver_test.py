#!/usr/bin/env python3
"""Without the driver manager of database servers everything but them is built and works, and the desk says what is missing
when one is asked for.

Usage: without_driver_test.py ROOT DESK CMAKE COMPILER
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

MODULE = "libopd-provider-odbc.so"
SCRIPT = 'expect-window frmMasterSearch\nanswer "OK" to "Are you sure to close this program?"\nclick Command1(2)\n'


def run(*words, **options):
    answer = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)
    return answer.returncode, answer.stdout


def is_configured_without_it(folder, root, cmake, compiler):
    """Nothing that would be built asks for it; nothing is built for that."""
    status, told = run(cmake, "-S", root, "-B", folder, "-G", "Ninja", f"-DCMAKE_CXX_COMPILER={compiler}",
                       "-DCMAKE_DISABLE_FIND_PACKAGE_ODBC=ON")
    assert status == 0 and "the desk is built without access to database servers" in told, told
    status, targets = run("ninja", "-C", folder, "-t", "targets", "all")
    assert status == 0 and "bin/opd-desk:" in targets and "bin/libopd-desktop-qt.so:" in targets, targets[-2000:]
    for_servers = re.findall(r"^\S*(?:odbc|prove)\S*\.(?:o|a|so):.*", targets, re.MULTILINE)
    assert for_servers == [], "something is built for servers all the same"


class Installed:
    """A desk as it is installed where the module was not built."""

    def __init__(self, folder, desk):
        self.folder, self.desk = folder, folder / "opd-desk"
        for file in [Path(desk), *Path(desk).parent.glob("libopd-*.so")]:
            if file.name != MODULE:
                shutil.copy2(file, folder)
        self.script = folder / "script.opd"
        self.script.write_text(SCRIPT, encoding="utf-8")
        self.environment = {**os.environ, "OPD_CLASS_REGISTRY": str(folder / "classes.ini"),
                            "OPD_SETTINGS": str(folder / "mine.ini")}

    def asks(self, *words, given=""):
        return run(self.desk, *words, env=self.environment, input=given)

    def works(self, hospital):
        assert self.asks("configure", "--server", hospital) == (0, "")
        return self.asks("run", "--desktop", "scripted", "--script", self.script)

    def works_embedded(self):
        hospital = Path(tempfile.mkdtemp(dir=self.folder))
        status, told = self.asks("create-database", hospital, "--patients", "1")
        assert status == 0, told
        status, told = self.works(hospital)
        assert status == 0, told

    def says_of_servers(self, *parts):
        for status, told in (self.works("localhost,1"), self.asks("create-server", "--server", "localhost,1", "--user", "sa",
                                                                  "--password-stdin", given="secret\n")):
            assert status != 0 and '"localhost,1" is the name of a database server' in told, told
            assert all(part in told for part in parts), told

    def gets_a_module_without_driver_manager(self, compiler):
        """The module as it was built, and then the packages that it needs were taken away."""
        needed, module = self.folder / "libodbc.so.99", self.folder / MODULE
        subprocess.run([compiler, "-shared", "-x", "c", os.devnull, "-o", needed, "-Wl,-soname,libodbc.so.99"], check=True)
        subprocess.run([compiler, "-shared", "-x", "c", os.devnull, "-o", module, "-x", "none", "-Wl,--no-as-needed", needed],
                       check=True)
        needed.unlink()


def main(root, desk, cmake, compiler):
    with tempfile.TemporaryDirectory() as name:
        is_configured_without_it(Path(name), root, cmake, compiler)
    with tempfile.TemporaryDirectory() as name:
        installed = Installed(Path(name), desk)
        installed.works_embedded()
        installed.says_of_servers(f"({MODULE}) is not installed beside it", "the package unixodbc-dev")
        installed.gets_a_module_without_driver_manager(compiler)
        installed.works_embedded()
        installed.says_of_servers("cannot be used. Install the packages unixodbc and tdsodbc.", "libodbc.so.99")


if __name__ == "__main__":
    main(*sys.argv[1:])
