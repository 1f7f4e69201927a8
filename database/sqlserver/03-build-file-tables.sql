-- The reference files, code first. The lists of 12-reference-data.sql fill them.
USE Build_File;
GO
IF OBJECT_ID(N'dbo.tbCoAddress', N'U') IS NULL
CREATE TABLE dbo.tbCoAddress (
  ZipCode nvarchar(50) NOT NULL PRIMARY KEY,
  Town nvarchar(100) NULL,
  Province nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoNationality', N'U') IS NULL
CREATE TABLE dbo.tbCoNationality (
  NationalityID nvarchar(50) NOT NULL PRIMARY KEY,
  Nationality nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoReligion', N'U') IS NULL
CREATE TABLE dbo.tbCoReligion (
  ReligionID nvarchar(50) NOT NULL PRIMARY KEY,
  Religion nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoBarangay', N'U') IS NULL
CREATE TABLE dbo.tbCoBarangay (
  BarangayID nvarchar(50) NOT NULL PRIMARY KEY,
  Barangay nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoService', N'U') IS NULL
CREATE TABLE dbo.tbCoService (
  ServiceID nvarchar(50) NOT NULL PRIMARY KEY,
  Service nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoAllergy', N'U') IS NULL
CREATE TABLE dbo.tbCoAllergy (
  AllergyID nvarchar(50) NOT NULL PRIMARY KEY,
  Allergy nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoDoctor', N'U') IS NULL
CREATE TABLE dbo.tbCoDoctor (
  DoctorID nvarchar(50) NOT NULL PRIMARY KEY,
  LastName nvarchar(100) NULL,
  FirstName nvarchar(100) NULL,
  MiddleName nvarchar(100) NULL,
  ServiceID1 nvarchar(50) NULL, -- the specializations
  ServiceID2 nvarchar(50) NULL,
  ServiceID3 nvarchar(50) NULL,
  DutyDays nvarchar(10) NOT NULL DEFAULT N'', -- the weekdays on duty, Sunday 0 to Saturday 6, such as 135
  Consultations int NOT NULL DEFAULT 0
);
GO
IF OBJECT_ID(N'dbo.tbCoCompany', N'U') IS NULL
CREATE TABLE dbo.tbCoCompany (
  AccountNum nvarchar(50) NOT NULL PRIMARY KEY,
  Company nvarchar(100) NULL,
  Class nvarchar(10) NULL -- P insurance, H health plan, S employees' medicine, C company, G government, M members
);
GO
IF OBJECT_ID(N'dbo.tbCoPayCode', N'U') IS NULL
CREATE TABLE dbo.tbCoPayCode (
  PayCodeID nvarchar(50) NOT NULL PRIMARY KEY,
  PayCode nvarchar(100) NULL,
  Status nvarchar(10) NULL DEFAULT N'A'
);
GO
IF OBJECT_ID(N'dbo.tbCoAdmissionType', N'U') IS NULL
CREATE TABLE dbo.tbCoAdmissionType (
  AdmissionTypeID nvarchar(50) NOT NULL PRIMARY KEY,
  AdmissionType nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoChiefComplaint', N'U') IS NULL
CREATE TABLE dbo.tbCoChiefComplaint (
  ChiefComplaintID nvarchar(50) NOT NULL PRIMARY KEY,
  ChiefComplaint nvarchar(255) NULL,
  BodySystem nvarchar(100) NULL
);
GO
IF OBJECT_ID(N'dbo.tbCoOtherRevenue', N'U') IS NULL
CREATE TABLE dbo.tbCoOtherRevenue (
  RevenueID nvarchar(50) NOT NULL PRIMARY KEY,
  SectionID nvarchar(50) NULL,
  OtherRevenue nvarchar(100) NULL
);
GO
