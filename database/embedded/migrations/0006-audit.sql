-- What saves changed in a patient's record: a row for each column, and one ("registered") for a new patient.
CREATE TABLE Patient_Data_tbMasterAudit (
  AuditID INTEGER PRIMARY KEY,
  HospNum TEXT COLLATE OPD NOT NULL,
  IDNum TEXT, -- the visit that was saved with it
  ChangedAt DATETIME NOT NULL,
  UserID TEXT, -- of the desk; null where the save told none
  Login TEXT, -- of the connection
  Workstation TEXT,
  Session INTEGER, -- who of the desks wrote it: the user is told after the changes
  What TEXT NOT NULL, -- the column, or "registered"
  OldValue TEXT,
  NewValue TEXT
);
CREATE INDEX Patient_Data_tbMasterAudit_HospNum ON Patient_Data_tbMasterAudit (HospNum);
