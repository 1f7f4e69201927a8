#!/usr/bin/env python3
"""Walks the windows of a desk as a screen reader does, and registers a patient with what such a program has alone: texts,
actions and marks. Then asks the hospital what is stored.    registration.py DESK HOSPITAL"""

import subprocess
import sys

import pyatspi
from desk import Desk, faults, has, tree

MORNING = "11/25/2026 10:00"
STORED = """SELECT m.LastName, m.FirstName, m.Sex, m.BirthDate, m.Barangay, m.ZipCode, m.CivilStatus, e.ReligionID,
  h.Diabetes, v.ServiceID1, v.ChiefComplaints, v.BloodPressure, substr(v.AdmDate, 12, 5)
FROM Patient_Data_tbMaster m JOIN Patient_Data_tbMaster2 e USING (HospNum) JOIN Patient_Data_tbOutPatient v USING (HospNum)
JOIN Patient_Data_tbMasterMedicalHistory h USING (HospNum) WHERE m.LastName = 'QUIZON'"""
EXPECTED = "QUIZON|LIGAYA LUZ|F|1991-05-20|SAN ISIDRO|1000|2|31|1|1|FEVER~COUGH|120/80|09:30"

found = []


def look(window):
    found.extend(faults(window))


def search(desk):
    window = desk.window("Master Patient Search", "frame")
    desk.find(window, "status bar", "Scan the card, or type its number: the search begins by itself.")
    look(window)
    desk.write(window, "Last Name", "quizon")
    desk.tick(window, "radio button", "Female")
    desk.write(window, "Date of Birth", "05/20/1991")
    desk.press(window, "Search")


def pick_religion(desk, form):
    """From the listing, by marking a cell of it."""
    desk.press(form, "Look up Religion")
    listing = desk.window("Religions", "dialog")
    look(listing)
    cell = desk.find(listing, "table cell", "AGNOSTIC")
    cell.queryAction().doAction(0)
    desk.until("mark in the listing", lambda: has(cell, pyatspi.STATE_SELECTED))
    desk.press(listing, "Select")
    desk.reads(form, "Religion", "31")
    desk.reads(form, "Religion name", "AGNOSTIC")


def register(desk):
    form = desk.window("Registration", "frame")
    for page in ("Additional Information", "Consultation Information", "Diagnosis & History", "Employment & Dependent",
                 "Personal Information"):
        desk.turn_to(form, page)
        look(form)
    desk.write(form, "First Name", "ligaya luz")
    desk.tick(form, "radio button", "Female")
    desk.write(form, "Birthdate", "05/20/1991")
    desk.write(form, "Time", "09:30 AM", role="spin button")
    desk.write(form, "Barangay", "san isidro")
    desk.write(form, "Town/Prov.", "1000")
    desk.choose(form, "Civil Status", "Married")
    pick_religion(desk, form)
    desk.turn_to(form, "Consultation Information")
    desk.press(form, "Look up Complaint")
    complaints = desk.until("dialog", lambda: next((window for window in desk.windows()
                                                    if window.getRoleName() == "dialog"), None))
    look(complaints)
    desk.press(complaints, "Cancel")
    desk.write(form, "Services 1", "1")
    desk.write(form, "B.P. systolic", "120")
    desk.write(form, "B.P. diastolic", "80")
    desk.turn_to(form, "Diagnosis & History")
    desk.write(form, "Chief Complaint", "fever\ncough")
    desk.tick(form, "check box", "Diabetes")
    desk.press(form, "Save/Print")
    box = desk.until("message", lambda: next((window for window in desk.windows() for node in tree(window)
                                              if "was registered as Hosp. #" in node.name), None))
    look(box)
    desk.press(box, "OK")


def walk_the_rest(desk):
    """The data sheet, and the windows that a registration does not pass."""
    sheet = desk.window("Out-Patient & Emergency Room Record", "frame")
    look(sheet)
    desk.press(sheet, "Close")
    window = desk.window("Master Patient Search", "frame")
    desk.press(window, "Today's Visits")
    visits = desk.window("Today's Visits")
    desk.find(visits, "table cell", "QUIZON, LIGAYA LUZ")
    look(visits)


def main(program, hospital):
    with Desk(program, "run", "--database", hospital, "--user", "CLERK", "--now", MORNING) as desk:
        search(desk)
        register(desk)
        walk_the_rest(desk)
    stored = subprocess.run([program, "sql", hospital, STORED], capture_output=True, text=True, check=True).stdout
    stored = stored.strip().replace("\r", "").replace("\n", "~")
    if stored != EXPECTED:
        found.append(f"stored is {stored}, and not {EXPECTED}")
    print("\n".join(dict.fromkeys(found)) or "Every window can be spoken of, and what was written is stored.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
