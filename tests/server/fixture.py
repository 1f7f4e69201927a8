"""The test server with a hospital behind it, for the tests of its clients and faults."""

import os
import subprocess
import tempfile
from pathlib import Path

NOW = "11/25/2026 10:00"
USER, PASSWORD, DATABASE = "desk", "Desk-1234", "LABORATORY"
LONG = "Ñ a" * 1333 + "z"  # 4,000 characters


def odbc_settings(port, password=PASSWORD):
    driver = next(Path("/usr/lib").glob("*/odbc/libtdsodbc.so"))
    return (f"DRIVER={driver};Server=127.0.0.1;Port={port};UID={USER};PWD={password};Database={DATABASE};TDS_Version=7.4;"
            "ClientCharset=UTF-8")


class Server:
    """Serves from its start to its end; two patients are as a test of texts wants them."""

    def __init__(self, program, desk, *options):
        self.folder = tempfile.TemporaryDirectory()
        self.path = Path(self.folder.name)
        self.desk = desk
        self.command = [program, self.path / "hospital", "--log", self.path / "log", *options]

    def __enter__(self):
        self.run_desk("create-database", self.path / "hospital", "--patients", "20", "--now", NOW)
        self.run_desk("sql", "--write", self.path / "hospital",
                      "update Patient_Data_tbMaster set LastName = 'NUÑEZ', MiddleName = null, BirthDate = '1935-02-28', "
                      f"FileNum = 7, Occupation = '{LONG}' where HospNum = '00000001'; "
                      "update Patient_Data_tbMaster set LastName = 'O`HARA', MiddleName = 'Ü', BirthDate = '2004-02-29', "
                      "FileNum = null, Occupation = null where HospNum = '00000002'")
        self.process = subprocess.Popen(self.command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                        env={**os.environ, "OPD_NOW": NOW})
        self.port = int(self.process.stdout.readline())
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        status = self.process.wait(timeout=20)
        self.process.stdout.close()
        self.folder.cleanup()
        assert status == 0, f"the server ended with {status}"

    def run_desk(self, *words):
        return subprocess.run([self.desk, *words], check=True, capture_output=True, text=True).stdout

    def sql(self, statement):
        """Past the server: what stands in the database."""
        return self.run_desk("sql", self.path / "hospital", ".timeout 5000", statement).strip()

    def tell(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline().strip()
        assert answer == "ok", answer

    def received(self):
        """The statements that came so far, without the numbers of their connections."""
        return [line.split("\t")[1] for line in (self.path / "log").read_text(encoding="utf-8").splitlines()]
