#!/usr/bin/env python3
"""Many desks register patients on one hospital at the same time: many_desks.py DESK [FOLDER] [options].

Each desk is a program of its own, without a screen, worked by an operator script: a patient is looked for by name, the
card is scanned, the visit is registered. FOLDER is a hospital's, made where there is none, for this run alone where it is
not named; its patients are used up, one visit each. With --settings the desks reach it by that file, a server for example,
and FOLDER is only looked at afterwards: no number may be there twice, and whatever a desk was told to be registered must be
there whole, once. Ends with status 1 and what is wrong otherwise. Prints how long a search by name, a scan and a save took
a clerk, by each desk's own stopwatch.
"""

import argparse
import contextlib
import json
import os
import random
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

OPENING = "expect-window frmMasterSearch\n"
VISIT = """pause {think}
type txtName(0) "{name}"
click Option1({sex})
type txtBirthDate "{birth}"
stopwatch "- -"
click Command1(0)
stopwatch "name {patient}"
click Command1(1)
type txtHospNum "{patient}"
stopwatch "- -"
wait 600
stopwatch "card {patient}"
key Enter
answer "OK" like ".* was registered as Hosp\\. # \\({patient}\\) and Case # \\(\\d{{10}}B\\)\\."
stopwatch "- -"
click cmdSave
stopwatch "save {patient}"
"""
CLOSING = "click Command1(2)\n"
VISITS_OF_A_RUN = 25
STEPS = ("name", "card", "save")


def sql(desk, folder, statement):
    return subprocess.run([desk, "sql", folder, statement], check=True, capture_output=True, text=True).stdout.splitlines()


class Desk(threading.Thread):
    """One clerk, who begins a new script while time and patients last."""

    def __init__(self, options, number, patients, until):
        super().__init__()
        self.options, self.number, self.patients, self.until = options, number, patients, until
        self.times = {step: [] for step in STEPS}
        self.registered, self.errors = [], []
        self.random = random.Random(number)

    def run(self):
        while self.patients and time.monotonic() < self.until and not self.errors:
            left = self.until - time.monotonic()
            visits = min(VISITS_OF_A_RUN, int(left / self.options.think) + 1 if self.options.think else VISITS_OF_A_RUN)
            self.play([self.patients.pop() for _ in range(min(visits, len(self.patients)))])

    def visit(self, row):
        patient, name, sex, birth = row.split("|")
        return VISIT.format(patient=patient, name=name, sex=0 if sex == "M" else 1, think=self.pause(),
                            birth=birth[5:7] + birth[8:10] + birth[:4])

    def pause(self):
        """About the think time, never all desks at once."""
        if self.options.think and not self.registered:
            return int(self.random.uniform(0, 1000 * self.options.think))
        return int(self.random.uniform(500, 1500) * self.options.think)

    def play(self, patients):
        script = Path(self.options.work, f"{self.number}.opd")
        script.write_text(OPENING + "".join(self.visit(patient) for patient in patients) + CLOSING)
        place = ["--settings", self.options.settings] if self.options.settings else ["--database", self.options.folder]
        desk = subprocess.Popen([self.options.desk, "run", *place, "--user", f"{self.options.user}-{self.number}", "--desktop", "scripted",
                                 "--script", script], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        for line in desk.stdout:
            step, patient, milliseconds = line.split()
            if step in STEPS:
                self.times[step].append(float(milliseconds))
            if step == "save":
                self.registered.append(patient)
        if desk.wait() != 0:
            self.errors.append(desk.stderr.read().strip())


def percentiles(times):
    ranked = sorted(times) or [0.0]
    at = {f"p{share}": ranked[min(len(ranked) - 1, len(ranked) * share // 100)] for share in (50, 95, 99)}
    return at | {"max": ranked[-1]}


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
    parser.add_argument("--think", type=float, default=0, help="seconds between two patients of a clerk, more or less")
    parser.add_argument("--json", help="file for the figures")
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


def free_patients(options):
    """Patients who can be registered today without a question, at most as many as the desks can want: number, name, sex, birth date."""
    most = int(options.desks * (options.seconds * 40 if not options.think else options.seconds / options.think + 2)) + 100
    return sql(options.desk, options.folder,
               "SELECT HospNum || '|' || LastName || '|' || Sex || '|' || BirthDate FROM Patient_Data_tbMaster m "
               "WHERE NOT EXISTS (SELECT 1 FROM Patient_Data_tbOutPatient v WHERE v.HospNum = m.HospNum) AND "
               "NOT EXISTS (SELECT 1 FROM Patient_Data_tbMasterAccount a WHERE a.HospNum = m.HospNum) AND "
               f"NOT EXISTS (SELECT 1 FROM Patient_Data_tbPatient p WHERE p.HospNum = m.HospNum) LIMIT {most}")


def register(options):
    free = free_patients(options)
    begun = time.monotonic()
    desks = [Desk(options, number, free[number::options.desks], begun + options.seconds)
             for number in range(options.desks)]
    for desk in desks:
        desk.start()
    for desk in desks:
        desk.join()
    took = time.monotonic() - begun
    count = sum(len(desk.registered) for desk in desks)
    least, most = (pick(len(desk.registered) for desk in desks) for pick in (min, max))
    print(f"{options.desks} desks, {took:.1f} s: {count} registrations, {count / took:.1f} a second, {least} to {most} a desk")
    times = {step: percentiles([taken for desk in desks for taken in desk.times[step]]) for step in STEPS}
    for step, at in times.items():
        print(f"{step:<6} " + "   ".join(f"{share} {taken:8.2f}" for share, taken in at.items()) + " ms")
    found = list(faults(options, desks))
    print("\n".join(found) if found else "Every registration is there once, and whole.")
    if options.json:
        Path(options.json).write_text(json.dumps({"desks": options.desks, "think": options.think, "seconds": took,
                                                  "registrations": count, "a_second": count / took, "least": least,
                                                  "most": most, "errors": len(found), "faults": found, "ms": times}))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
