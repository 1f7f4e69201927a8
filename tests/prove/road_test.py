#!/usr/bin/env python3
"""The road to a server that is proved, to the test server that stands in for one: what passes, what fails, and what
cannot be asked, each with its last sentence and its status.

Usage: road_test.py PROVE-SERVER PROGRAM TEST-SERVER DESK
"""

import contextlib
import os
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

USER, PASSWORD = "desk", "Desk-1234"


class StandIn:
    def __init__(self, server, desk, folder, *faults):
        hospital = folder / "hospital"
        subprocess.run([desk, "create-database", hospital, "--patients", "12", "--now", "06/30/2026 00:00"], check=True)
        subprocess.run([desk, "sql", "--write", hospital, "INSERT INTO billing_tbBill VALUES ('2600000001B', 1234.5)"],
                       check=True)
        self.log = folder / "log"
        self.command = [server, hospital, "--stand-in", "OPDProof_", "--log", self.log,
                        *(part for fault in faults for part in ("--fault", fault))]

    def __enter__(self):
        self.process = subprocess.Popen(self.command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                        env={**os.environ, "OPD_NOW": "11/25/2026 10:00"})
        self.port = int(self.process.stdout.readline())
        return self

    def __exit__(self, *_):
        self.process.communicate()


def proved(script, program, port, password, *options):
    with tempfile.TemporaryFile("w+") as told:
        process = subprocess.Popen([script, "--server", f"127.0.0.1,{port}", "--user", USER, "--password-stdin", *options],
                                   stdin=subprocess.PIPE, stdout=told, stderr=subprocess.STDOUT, text=True,
                                   env={**os.environ, "OPD_PROVE_PROGRAM": program})
        process.stdin.write(password + "\n")
        process.stdin.close()
        place, seen = Path(f"/proc/{process.pid}"), b""
        while process.poll() is None:  # the program takes the place of the script
            with contextlib.suppress(OSError):
                seen += (place / "cmdline").read_bytes() + (place / "environ").read_bytes()
            time.sleep(0.05)
        told.seek(0)
        answer = told.read()
    print(answer)
    assert process.returncode == 2 or program.encode() + b"\0--password-stdin" in seen, "nobody looked at it"
    assert password.encode() not in seen, "the password is there for others"
    assert password not in answer, "the password is shown"
    return process.returncode, answer


def main(script, program, server, desk):
    refused = ("error@Select OldValue:229", "error@'no visit':229")  # it knows no rights
    with tempfile.TemporaryDirectory() as name, StandIn(server, desk, Path(name), *refused) as stand_in:
        status, table = proved(script, program, stand_in.port, PASSWORD)
        cases = re.findall(r"^passed +\d+\.\d\d  \w+", table, re.MULTILINE)
        assert status == 0 and len(cases) >= 22 and "FAILED" not in table, "the stand-in does not pass"
        assert table.splitlines()[-1].endswith(f"({len(cases)} of {len(cases)} cases): desks can work with it.")
        # Every batch of the scripts came, and nothing named a database but the proof's own.
        received = stand_in.log.read_text(encoding="utf-8")
        assert "CREATE PROCEDURE dbo.sp_OPD_ComputeHospitalBill" in received
        assert "DB_ID(N'OPDProof_billing') IS NOT NULL DROP DATABASE OPDProof_billing" in received
        foreign = re.search(r"(?i)(?<!OPDProof_)(?<!`; Delete )\b(Patient_Data|Build_File|billing)\.", received)
        assert foreign is None, received[foreign.start() - 100:foreign.end() + 20]
        assert "N'LB', N'LABORATORY')" in received, "a name within quotes was taken for a database"

        status, table = proved(script, program, stand_in.port, "Wrong-1234")
        assert status == 2 and "could not be asked: Login failed" in table
    with tempfile.TemporaryDirectory() as name, \
            StandIn(server, desk, Path(name), "error@sp_AOPD_ComputeAge '0:50000", *refused) as stand_in:
        status, table = proved(script, program, stand_in.port, PASSWORD, "--keep")
        assert status == 1 and "\nFAILED" in table and f" 1 of {len(cases)} cases failed. " in table, "no failure is told"


if __name__ == "__main__":
    main(*sys.argv[1:])
