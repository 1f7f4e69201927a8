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
IF NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd_audit') CREATE ROLE opd_audit;
GO
IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL GRANT SELECT ON dbo.tbMasterAudit TO opd_audit;
GO
-- The procedures ask whether the table is there, and a server tells that only to whoever may know of it. On Babelfish a
-- procedure writes with the rights of whoever runs it; what changed stays unread there, too.
IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL AND SERVERPROPERTY(N'babelfish') IS NULL
  EXEC(N'GRANT VIEW DEFINITION ON dbo.tbMasterAudit TO opd_desk;');
GO
IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL AND SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN
  GRANT SELECT (AuditID, HospNum, Session, UserID) ON dbo.tbMasterAudit TO opd_desk;
  GRANT INSERT ON dbo.tbMasterAudit TO opd_desk;
  GRANT UPDATE (UserID) ON dbo.tbMasterAudit TO opd_desk;
  GRANT SELECT ON dbo.tbAuditedSave TO opd_desk;
  GRANT INSERT ON dbo.tbAuditedSave TO opd_desk;
  GRANT UPDATE ON dbo.tbAuditedSave TO opd_desk;
  GRANT DELETE ON dbo.tbAuditedSave TO opd_desk;
END
GO
