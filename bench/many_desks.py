#!/usr/bin/env python3
"""Many desks register patients on one hospital at the same time: many_desks.py DESK [FOLDER] [options].

Each desk is a program of its own, without a screen, worked by an operator script: a card is scanned, the visit is registered.
FOLDER is a hospital's, made where there is none, for this run alone where it is not named; its patients are used up, one visit each. With --settings the desks reach it by that file, a server for
example, and FOLDER is only looked at afterwards: no number may be there twice, and whatever a desk was told to be registered
must be there whole, once. Ends with status 1 and what is wrong otherwise. Prints how long a scan and a save took a clerk.
"""

import argparse
import contextlib
import os
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

OPENING = "expect-window frmMasterSearch\n"
VISIT = """say "scan {patient}"
type txtHospNum "{patient}"
wait 600
say "found {patient}"
key Enter
answer "OK" like ".* was registered as Hosp\\. # \\({patient}\\) and Case # \\(\\d{{10}}B\\)\\."
say "save {patient}"
click cmdSave
say "registered {patient}"
"""
CLOSING = "click Command1(2)\n"
VISITS_OF_A_RUN = 25


def sql(desk, folder, statement):
    return subprocess.run([desk, "sql", folder, statement], check=True, capture_output=True, text=True).stdout.split()


class Desk(threading.Thread):
    """One clerk, who begins a new script while time and patients last."""

    def __init__(self, options, number, patients, until):
        super().__init__()
        self.options, self.number, self.patients, self.until = options, number, patients, until
        self.scans, self.saves, self.registered, self.errors = [], [], [], []

    def run(self):
        while self.patients and time.monotonic() < self.until and not self.errors:
            self.play([self.patients.pop() for _ in range(min(VISITS_OF_A_RUN, len(self.patients)))])

    def play(self, patients):
        script = Path(self.options.work, f"{self.number}.opd")
        script.write_text(OPENING + "".join(VISIT.format(patient=patient) for patient in patients) + CLOSING)
        place = ["--settings", self.options.settings] if self.options.settings else ["--database", self.options.folder]
        desk = subprocess.Popen([self.options.desk, "run", *place, "--user", f"{self.options.user}-{self.number}", "--desktop", "scripted",
                                 "--script", script], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        begun = 0.0
        for line in desk.stdout:
            step, patient = line.split()
            now = time.monotonic()
            if step == "found":
                self.scans.append(now - begun)
            elif step == "registered":
                self.saves.append(now - begun)
                self.registered.append(patient)
            else:
                time.sleep(self.options.think if step == "scan" else 0)
                begun = time.monotonic()
        if desk.wait() != 0:
            self.errors.append(desk.stderr.read().strip())


def told(times, what):
    ranked = sorted(times)
    at = {share: ranked[min(len(ranked) - 1, int(len(ranked) * share))] * 1000 for share in (0.5, 0.95, 0.99)}
    print(f"{what:<6} p50 {at[0.5]:8.2f}   p95 {at[0.95]:8.2f}   p99 {at[0.99]:8.2f}   max {ranked[-1] * 1000:8.2f} ms")


def faults(options, desks):
    registered = sorted(patient for desk in desks for patient in desk.registered)
    stored = sql(options.desk, options.folder,
                 "SELECT v.HospNum FROM Patient_Data_tbOutPatient v JOIN Patient_Data_tbOutPatientContact USING (IDNum) "
                 "JOIN Patient_Data_tbOutPatientHistory h USING (IDNum) WHERE h.HospNum = v.HospNum AND "
                 f"v.UserID LIKE '{options.user}-%'")
    all_visits = sql(options.desk, options.folder, "SELECT count(*), count(DISTINCT IDNum) FROM Patient_Data_tbOutPatient")
    yield from (error for desk in desks for error in desk.errors)
    if registered != sorted(stored):
        yield f"{len(registered)} were told to be registered, {len(stored)} visits are whole"
    if len(set(all_visits[0].split("|"))) != 1:
        yield f"visits and different numbers: {all_visits[0]}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("desk")
    parser.add_argument("folder", nargs="?")
    parser.add_argument("--settings", help="settings file by which the desks reach the hospital")
    parser.add_argument("--server", help="the test server, which is started on the hospital for the desks")
    parser.add_argument("--desks", type=int, default=30)
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--think", type=float, default=0, help="seconds between two patients of a clerk")
    parser.add_argument("--patients", type=int, default=5000, help="of a hospital that is made")
    options = parser.parse_args()
    options.user = f"D{os.getpid()}"
    with tempfile.TemporaryDirectory() as options.work:
        os.environ.update(OPD_CLASS_REGISTRY=f"{options.work}/classes.ini", XDG_RUNTIME_DIR=options.work)
        options.folder = options.folder or f"{options.work}/hospital"
        if not Path(options.folder).exists():
            subprocess.run([options.desk, "create-database", options.folder, "--patients", str(options.patients)], check=True)
        with server_of(options):
            return register(options)


@contextlib.contextmanager
def server_of(options):
    """The test server on the hospital, and settings that lead to it, where it is asked for."""
    if not options.server:
        yield
        return
    with subprocess.Popen([options.server, options.folder, "--password", "Desk-1234"], stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE, text=True) as server:
        options.settings = f"{options.work}/settings.ini"
        subprocess.run([options.desk, "configure", "--server", f"localhost,{server.stdout.readline().strip()}", "--user", "desk",
                        "--password-stdin", "--settings", options.settings], input="Desk-1234\n", check=True, text=True)
        try:
            yield
        finally:
            server.terminate()


def register(options):
    busy = set(sql(options.desk, options.folder, "SELECT HospNum FROM Patient_Data_tbOutPatient "
                                                 "UNION SELECT HospNum FROM Patient_Data_tbPatient"))
    free = [patient for patient in sql(options.desk, options.folder, "SELECT HospNum FROM Patient_Data_tbMaster")
            if patient not in busy]
    begun = time.monotonic()
    desks = [Desk(options, number, free[number::options.desks], begun + options.seconds)
             for number in range(options.desks)]
    for desk in desks:
        desk.start()
    for desk in desks:
        desk.join()
    took = time.monotonic() - begun
    count = sum(len(desk.registered) for desk in desks)
    print(f"{options.desks} desks, {took:.1f} s: {count} registrations, {count / took:.1f} a second, "
          f"{min(len(desk.registered) for desk in desks)} to {max(len(desk.registered) for desk in desks)} a desk")
    told([taken for desk in desks for taken in desk.scans], "scan")
    told([taken for desk in desks for taken in desk.saves], "save")
    found = list(faults(options, desks))
    print("\n".join(found) if found else "Every registration is there once, and whole.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
