-- The hospital itself: its one row of settings, with every optional behaviour off, and the counters of the numbers.
-- Under Consultations stands how often consultations were counted: whoever counts them waits there for the others.
USE Patient_Data;
GO
IF NOT EXISTS (SELECT 1 FROM dbo.tbHospitalInfo)
INSERT INTO dbo.tbHospitalInfo (ClientName, Company, Address1)
VALUES (N'', N'SAN ROQUE GENERAL HOSPITAL', N'128 MABINI STREET, MANILA');
GO
IF NOT EXISTS (SELECT 1 FROM dbo.tbCounter WHERE Name = N'HospNum')
INSERT INTO dbo.tbCounter (Name, Last) VALUES (N'HospNum', 0);
GO
IF NOT EXISTS (SELECT 1 FROM dbo.tbCounter WHERE Name = N'OPDID')
INSERT INTO dbo.tbCounter (Name, Last) VALUES (N'OPDID', 2600000000);
GO
IF NOT EXISTS (SELECT 1 FROM dbo.tbCounter WHERE Name = N'FileNum')
INSERT INTO dbo.tbCounter (Name, Last) VALUES (N'FileNum', 0);
GO
IF NOT EXISTS (SELECT 1 FROM dbo.tbCounter WHERE Name = N'Consultations')
INSERT INTO dbo.tbCounter (Name, Last) VALUES (N'Consultations', 0);
GO
