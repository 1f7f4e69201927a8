#!/usr/bin/env python3
"""Walks the windows of a desk as a screen reader does, and registers a patient with what such a program has alone: texts,
actions and marks. Then asks the hospital what is stored.    registration.py DESK HOSPITAL PHOTOGRAPH"""

import subprocess
import sys

import pyatspi
from desk import Desk, faults, has, text_of, tree

MORNING = "11/25/2026 10:00"
STORED = """SELECT m.LastName, m.FirstName, m.Sex, m.BirthDate, m.Barangay, m.ZipCode, m.CivilStatus, e.ReligionID,
  h.Diabetes, v.ServiceID1, v.ChiefComplaints, v.BloodPressure, substr(v.AdmDate, 12, 5)
FROM Patient_Data_tbMaster m JOIN Patient_Data_tbMaster2 e USING (HospNum) JOIN Patient_Data_tbOutPatient v USING (HospNum)
JOIN Patient_Data_tbMasterMedicalHistory h USING (HospNum) WHERE m.LastName = 'QUIZON'"""
EXPECTED = "QUIZON|LIGAYA LUZ|F|1991-05-20|SAN ISIDRO|1000|2|31|1|1|FEVER~COUGH|120/80|09:30"

found = []


def look(window):
    found.extend(faults(window))


def must(is_so, what):
    if not is_so:
        found.append(what)


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


def refused(desk, form):
    """A save that lacks something tells what, and the focus stands at that field, which says it again."""
    desk.press(form, "Register")
    box = desk.until("message", lambda: next((window for window in desk.windows()
                                              if window.getRoleName() == "alert"), None))
    look(box)
    said = [node.name for node in tree(box) if node.getRoleName() == "label"]
    desk.press(box, "OK")
    field = desk.active(form)[0]
    must(field.getRoleName() == "text" and field.description in said,
         f"{said} was refused, and \"{field.name}\" says \"{field.description}\"")


def pick_class(desk, form):
    """In a search dialog, whose first record is marked when it opens."""
    needed = desk.find(form, "text", "Patient Classification")
    must(needed.description.startswith("Still needed"), f"the class is needed and says \"{needed.description}\"")
    desk.press(form, "Look up Patient Classification")
    dialog = desk.until("dialog", lambda: next((window for window in desk.windows()
                                                if window.getRoleName() == "dialog"), None))
    desk.active(dialog)
    look(dialog)
    must(any(has(node, pyatspi.STATE_SELECTED) for node in tree(dialog) if node.getRoleName() == "table cell"),
         f"{dialog.name}: no record is marked")
    desk.press(dialog, "Select")
    desk.until("class", lambda: text_of(needed) and not needed.description)


def register(desk):
    form = desk.window("Registration", "frame")
    for page in ("Consultation Information", "Diagnosis & History", "Employment & Dependent", "Additional Information"):
        desk.turn_to(form, page)
        look(form)
    for name in ("OPD No.", "Hosp. No.", "Age"):
        must(has(desk.find(form, "text", name), pyatspi.STATE_READ_ONLY), f"{name} can be written")
    desk.turn_to(form, "Personal Information")
    look(form)
    refused(desk, form)
    desk.turn_to(form, "Additional Information")
    pick_class(desk, form)
    desk.turn_to(form, "Additional Information")
    desk.press(form, "Capture")
    desk.find(form, "image", "Photograph")
    look(form)
    desk.turn_to(form, "Personal Information")
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


def walk_search(desk, window):
    """The card of its keys, the calendar of its date and what else it leads to."""
    desk.active(window)
    desk.key("F1")
    card = desk.window('Keys of "Master Patient Search"', "dialog")
    desk.active(card)
    look(card)
    desk.find(card, "table cell", "Alt+V")
    desk.press(card, "Close")
    desk.press(window, "Today's Visits")
    visits = desk.window("Today's Visits")
    desk.find(visits, "table cell", "QUIZON, LIGAYA LUZ")
    desk.active(visits)
    look(visits)
    must(has(desk.find(visits, "push button", "Open"), pyatspi.STATE_IS_DEFAULT), "Enter opens a visit, which nothing says")
    desk.press(visits, "Open")


def changed_meanwhile(desk, other):
    """What another desk stored while the visit was open here, field by field, and the way back."""
    form = desk.window("Registration", "dialog")
    other()
    desk.write(form, "Occupation", "teacher")
    desk.press(form, "Update")
    question = desk.window("Changed at Another Desk", "dialog")
    desk.active(question)
    look(question)
    for name, text in (("When it was opened here", ""), ("Stored now", "NURSE"), ("This desk would write", "TEACHER")):
        desk.reads(question, name, text)
        must(has(desk.find(question, "text", name), pyatspi.STATE_READ_ONLY), f"{name} can be written")
    desk.find(question, "table cell", "Occupation")
    desk.press(question, "Take theirs")
    desk.reads(form, "Occupation", "NURSE")
    desk.press(form, "Cancel")


def main(program, hospital, photograph):
    def other():
        subprocess.run([program, "sql", "--write", hospital,
                        "UPDATE Patient_Data_tbMaster SET Occupation = 'NURSE' WHERE LastName = 'QUIZON'"], check=True)

    with Desk(program, "run", "--database", hospital, "--user", "CLERK", "--now", MORNING,
              "--camera-file", photograph) as desk:
        search(desk)
        register(desk)
        sheet = desk.window("Out-Patient & Emergency Room Record", "frame")
        look(sheet)
        desk.press(sheet, "Close")
        walk_search(desk, desk.window("Master Patient Search", "frame"))
        changed_meanwhile(desk, other)
    stored = subprocess.run([program, "sql", hospital, STORED], capture_output=True, text=True, check=True).stdout
    stored = stored.strip().replace("\r", "").replace("\n", "~")
    if stored != EXPECTED:
        found.append(f"stored is {stored}, and not {EXPECTED}")
    print("\n".join(dict.fromkeys(found)) or "Every window can be spoken of, and what was written is stored.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
