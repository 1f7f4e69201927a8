#!/usr/bin/env python3
"""The road to a server that is proved, to the test server that stands in for one: what passes, what fails, and what
cannot be asked, each with its last sentence and its status.

Usage: road_test.py PROVE-SERVER PROGRAM TEST-SERVER DESK
"""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

USER, PASSWORD = "desk", "Desk-1234"


class StandIn:
    def __init__(self, server, desk, folder, *faults):
        hospital = folder / "hospital"
        subprocess.run([desk, "create-database", hospital, "--patients", "12", "--now", "06/30/2026 00:00"], check=True)
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
    answer = subprocess.run([script, "--server", f"127.0.0.1,{port}", "--user", USER, "--password-stdin", *options],
                            input=password + "\n", capture_output=True, text=True, check=False,
                            env={**os.environ, "OPD_PROVE_PROGRAM": program})
    print(answer.stdout + answer.stderr)
    assert password not in answer.stdout + answer.stderr, "the password is shown"
    return answer.returncode, answer.stdout


def main(script, program, server, desk):
    with tempfile.TemporaryDirectory() as name, StandIn(server, desk, Path(name)) as stand_in:
        status, table = proved(script, program, stand_in.port, PASSWORD)
        cases = re.findall(r"^passed +\d+\.\d\d  \w+", table, re.MULTILINE)
        assert status == 0 and len(cases) >= 14 and "FAILED" not in table, "the stand-in does not pass"
        assert table.splitlines()[-1].endswith(f"({len(cases)} of {len(cases)} cases): desks can work with it.")
        # Every batch of the scripts came, and nothing named a database but the proof's own.
        received = stand_in.log.read_text(encoding="utf-8")
        assert "CREATE PROCEDURE dbo.sp_OPD_ComputeHospitalBill" in received
        assert "DB_ID(N'OPDProof_billing') IS NOT NULL DROP DATABASE OPDProof_billing" in received
        foreign = re.search(r"(?i)(?<!OPDProof_)(?<!`; Delete )\b(Patient_Data|Build_File|billing)\.", received)
        assert foreign is None, received[foreign.start() - 100:foreign.end() + 20]
        assert "N'LB', N'LABORATORY')" in received, "a name within quotes was taken for a database"

        status, table = proved(script, program, stand_in.port, "wrong")
        assert status == 2 and "could not be asked: Login failed" in table
    with tempfile.TemporaryDirectory() as name, \
            StandIn(server, desk, Path(name), "error@sp_AOPD_ComputeAge '0:50000") as stand_in:
        status, table = proved(script, program, stand_in.port, PASSWORD, "--keep")
        assert status == 1 and "\nFAILED" in table and f" 1 of {len(cases)} cases failed. " in table, "no failure is told"


if __name__ == "__main__":
    main(*sys.argv[1:])
