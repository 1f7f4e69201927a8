-- A doctor works for up to three services on some days of the week; a complaint belongs to a body system.
CREATE TABLE NewDoctor (
  DoctorID TEXT COLLATE OPD PRIMARY KEY, LastName TEXT COLLATE OPD, FirstName TEXT COLLATE OPD, MiddleName TEXT,
  ServiceID1 TEXT COLLATE OPD, ServiceID2 TEXT COLLATE OPD, ServiceID3 TEXT COLLATE OPD,
  DutyDays TEXT NOT NULL DEFAULT '',
  Consultations INTEGER NOT NULL DEFAULT 0);
INSERT INTO NewDoctor (DoctorID, LastName, FirstName, MiddleName, ServiceID1, ServiceID2, ServiceID3, Consultations)
SELECT DoctorID, LastName, FirstName, MiddleName, ServiceID, '', '', Consultations FROM Build_File_tbCoDoctor;
DROP TABLE Build_File_tbCoDoctor;
ALTER TABLE NewDoctor RENAME TO Build_File_tbCoDoctor;

CREATE VIEW Build_File_vwDoctor AS
SELECT DoctorID,
       trim(LastName) || ', ' || trim(FirstName) || iif(trim(coalesce(MiddleName, '')) = '', '', ', ' || MiddleName)
         AS FullName,
       ServiceID1, ServiceID2, ServiceID3, DutyDays, Consultations
FROM Build_File_tbCoDoctor;

ALTER TABLE Build_File_tbCoChiefComplaint ADD COLUMN BodySystem TEXT COLLATE OPD;
UPDATE Build_File_tbCoChiefComplaint SET BodySystem = '';
