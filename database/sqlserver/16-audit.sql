-- What saves changed in a patient's record, who saved and where: the table that the procedures of
-- 10-patient-data-save-patient.sql and 11-patient-data-save-visit.sql fill where it is there. A server without it works
-- as well, and keeps no such record: to begin one, run this script; to end it, drop both tables while no desk works.
USE Patient_Data;
GO
IF OBJECT_ID(N'dbo.tbDeskVersion', N'U') IS NULL
  RAISERROR(N'Patient_Data is not of these scripts: the procedures there keep no audit.', 16, 1);
GO
-- What the save of a session is, for the procedures that follow one another in it. LastID is the last change that was
-- noted before it began.
IF OBJECT_ID(N'dbo.tbDeskVersion', N'U') IS NOT NULL AND OBJECT_ID(N'dbo.tbAuditedSave', N'U') IS NULL
CREATE TABLE dbo.tbAuditedSave (
  Session int NOT NULL PRIMARY KEY,
  HospNum nvarchar(20) NOT NULL,
  IDNum nvarchar(20) NOT NULL,
  IsNew bit NOT NULL,
  LastID int NOT NULL,
  UserID nvarchar(128) NULL
);
GO
-- A row for each column, and one ("registered") for a new patient.
IF OBJECT_ID(N'dbo.tbDeskVersion', N'U') IS NOT NULL AND OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NULL
BEGIN
  BEGIN TRANSACTION;
  CREATE TABLE dbo.tbMasterAudit (
    AuditID int IDENTITY(1, 1) NOT NULL PRIMARY KEY,
    HospNum nvarchar(20) NOT NULL,
    IDNum nvarchar(20) NULL, -- the visit that was saved with it
    ChangedAt datetime NOT NULL,
    UserID nvarchar(128) NULL, -- of the desk; null where the save told none
    Login nvarchar(128) NULL, -- of the connection
    Workstation nvarchar(128) NULL,
    Session int NULL, -- who of the desks wrote it: the user is told after the changes
    What nvarchar(128) NOT NULL, -- the column, or "registered"
    OldValue nvarchar(max) NULL,
    NewValue nvarchar(max) NULL
  );
  CREATE INDEX tbMasterAudit_HospNum ON dbo.tbMasterAudit (HospNum);
  COMMIT TRANSACTION;
END
GO
-- Desks write it through their procedures alone, and none may read it. Whoever is to read what "opd-desk history" shows
-- becomes a member of this role.
IF DATABASE_PRINCIPAL_ID(N'opd_audit') IS NULL CREATE ROLE opd_audit;
GO
IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL GRANT SELECT ON dbo.tbMasterAudit TO opd_audit;
GO
