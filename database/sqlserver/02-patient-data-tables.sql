-- Patients, their visits, the hospital's settings and the numbers that are given out. A table that is there already is
-- left as it is, with what it holds.
USE Patient_Data;
GO
-- A hospital that brought its own tables keeps them: its procedures are its own too, and none of them is to be
-- replaced.
IF OBJECT_ID(N'dbo.tbMaster', N'U') IS NOT NULL AND OBJECT_ID(N'dbo.tbDeskVersion', N'U') IS NULL
  RAISERROR(N'Patient_Data belongs to a hospital that these scripts have not made. Stop here.', 16, 1);
GO
-- Says that these scripts have made the tables, and of which version they are.
IF OBJECT_ID(N'dbo.tbMaster', N'U') IS NULL AND OBJECT_ID(N'dbo.tbDeskVersion', N'U') IS NULL
CREATE TABLE dbo.tbDeskVersion (
  Version int NOT NULL PRIMARY KEY
);
GO
IF NOT EXISTS (SELECT 1 FROM dbo.tbDeskVersion) INSERT INTO dbo.tbDeskVersion (Version) VALUES (1);
GO

IF OBJECT_ID(N'dbo.tbHospitalInfo', N'U') IS NULL
CREATE TABLE dbo.tbHospitalInfo (
  ClientName nvarchar(255) NOT NULL DEFAULT N'',
  Company nvarchar(255) NULL,
  Address1 nvarchar(500) NULL,
  isHMORate int NULL DEFAULT 0,
  IsOPDstatRate int NULL DEFAULT 0,
  IsAllowOPDShowLabSpecimen int NULL DEFAULT 0,
  IsAllowOPDChargeChangePrice int NULL DEFAULT 0,
  isAllowOPDRegisterInpatient int NULL DEFAULT 0,
  IsAllowOPDCheckLabSection int NULL DEFAULT 0,
  IsAllowOPDAssessmentRateG int NULL DEFAULT 0,
  isAllowCorvane int NULL DEFAULT 0,
  isAllowOPDSearchBarangay int NULL DEFAULT 0,
  isAllowOPDSearchCardNumber int NULL DEFAULT 0,
  IsAllowOPDMABRate int NULL DEFAULT 0,
  IsAllowOPDUpdateHMOLOA int NULL DEFAULT 0,
  IsAllowOPDExportReport int NULL DEFAULT 0,
  IsAllowOPDSearchDocBySched int NULL DEFAULT 0,
  IsAllowOPDPatientClass int NULL DEFAULT 0,
  IsAllowOPDShowDiscount int NULL DEFAULT 0,
  isAllowOPDPayCode int NULL DEFAULT 0,
  isAllowMultipleRequest int NULL DEFAULT 0,
  allowEndConsultation int NULL DEFAULT 0,
  isAllowOPFileNumbering int NULL DEFAULT 0,
  isAllowCreateNewIDnum int NULL DEFAULT 0,
  isAllowSpecializedCompanyRate int NULL DEFAULT 0
);
GO

-- The numbers that are given out; each is the last one given.
IF OBJECT_ID(N'dbo.tbCounter', N'U') IS NULL
CREATE TABLE dbo.tbCounter (
  Name nvarchar(20) NOT NULL PRIMARY KEY,
  Last bigint NOT NULL
);
GO

IF OBJECT_ID(N'dbo.tbMaster', N'U') IS NULL
BEGIN
  BEGIN TRANSACTION;
  CREATE TABLE dbo.tbMaster (
    HospNum nvarchar(20) NOT NULL PRIMARY KEY,
    LastName nvarchar(100) NOT NULL,
    FirstName nvarchar(100) NOT NULL,
    MiddleName nvarchar(100) NULL,
    Title nvarchar(255) NULL,
    HouseStreet nvarchar(4000) NULL,
    Barangay nvarchar(255) NULL,
    ZipCode nvarchar(20) NULL,
    Sex nvarchar(20) NULL,
    BirthDate date NULL,
    Age nvarchar(255) NULL,
    telnum nvarchar(255) NULL,
    CivilStatus nvarchar(20) NULL,
    BloodType nvarchar(255) NULL,
    Occupation nvarchar(255) NULL,
    Employer nvarchar(255) NULL,
    EmployerAddress nvarchar(500) NULL,
    EmployerTelNum nvarchar(255) NULL,
    ReligionID nvarchar(50) NULL,
    PHICNum nvarchar(50) NULL,
    GSISNum nvarchar(50) NULL,
    SSSNum nvarchar(50) NULL,
    FileNum int NULL,
    -- How names and numbers are looked for, however they are written: in capitals, without accents, blanks and
    -- hyphens. The trigger of 06-patient-data-functions.sql keeps them, whoever writes the others. They compare by
    -- their characters alone, so that all that begins alike lies together in an index.
    SearchName nvarchar(100) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N'',
    SearchFirst nvarchar(100) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N'',
    SearchMiddle nvarchar(100) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N'',
    SearchPHIC nvarchar(50) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N'',
    SearchGSIS nvarchar(50) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N'',
    SearchSSS nvarchar(50) COLLATE Latin1_General_BIN2 NOT NULL DEFAULT N''
  );
  CREATE INDEX tbMaster_Search ON dbo.tbMaster (SearchName, Sex, BirthDate);
  CREATE INDEX tbMaster_First ON dbo.tbMaster (SearchName, SearchFirst);
  CREATE INDEX tbMaster_Name ON dbo.tbMaster (LastName, FirstName, BirthDate);
  CREATE INDEX tbMaster_BirthDate ON dbo.tbMaster (BirthDate, SearchName);
  CREATE INDEX tbMaster_PHIC ON dbo.tbMaster (SearchPHIC);
  CREATE INDEX tbMaster_GSIS ON dbo.tbMaster (SearchGSIS);
  CREATE INDEX tbMaster_SSS ON dbo.tbMaster (SearchSSS);
  CREATE INDEX tbMaster_FileNum ON dbo.tbMaster (FileNum);
  COMMIT TRANSACTION;
END
GO

-- The extended record: contacts, parents, spouse, employment.
IF OBJECT_ID(N'dbo.tbMaster2', N'U') IS NULL
CREATE TABLE dbo.tbMaster2 (
  HospNum nvarchar(20) NOT NULL PRIMARY KEY,
  BirthPlace nvarchar(255) NULL,
  NationalityID nvarchar(50) NULL,
  ReligionID nvarchar(50) NULL,
  Spouse nvarchar(255) NULL,
  mother nvarchar(255) NULL,
  Father nvarchar(255) NULL,
  Employer nvarchar(255) NULL,
  EmployerTelNum nvarchar(255) NULL,
  EmployerAddress nvarchar(500) NULL,
  ContactName nvarchar(255) NULL,
  ContactAddress nvarchar(500) NULL,
  ContactRelation nvarchar(255) NULL,
  ContactTelNum nvarchar(255) NULL,
  SpouseAddress nvarchar(500) NULL,
  SpouseTelNum nvarchar(255) NULL,
  FatherAddress nvarchar(500) NULL,
  FatherTelNum nvarchar(255) NULL,
  motherAddress nvarchar(500) NULL,
  motherTelNum nvarchar(255) NULL,
  BarangayCaptain nvarchar(255) NULL,
  Position nvarchar(255) NULL,
  EmploymentType int NULL,
  EmploymentLocation int NULL,
  EmployerFax nvarchar(255) NULL,
  EmployerEmail nvarchar(255) NULL,
  SpouseEmpName nvarchar(255) NULL,
  SpouseEmpAddress nvarchar(500) NULL,
  SpouseEmpTelNum nvarchar(255) NULL,
  SpouseEmpFax nvarchar(255) NULL,
  SpouseEmpEmail nvarchar(255) NULL,
  PhilHealth int NULL,
  HouseHold nvarchar(255) NULL,
  Email nvarchar(255) NULL,
  CellNum nvarchar(255) NULL
);
GO

IF OBJECT_ID(N'dbo.tbMasterAllergies', N'U') IS NULL
CREATE TABLE dbo.tbMasterAllergies (
  HospNum nvarchar(20) NOT NULL PRIMARY KEY,
  AllergyID1 nvarchar(50) NULL,
  AllergyID2 nvarchar(50) NULL,
  AllergyID3 nvarchar(50) NULL,
  AllergyID4 nvarchar(50) NULL,
  AllergyID5 nvarchar(50) NULL
);
GO

IF OBJECT_ID(N'dbo.tbMasterMedicalHistory', N'U') IS NULL
CREATE TABLE dbo.tbMasterMedicalHistory (
  HospNum nvarchar(20) NOT NULL PRIMARY KEY,
  Hypertension int NULL,
  Diabetes int NULL,
  Hepatitis int NULL,
  Allergies int NULL,
  Tubercolosis int NULL,
  PepticUlcer int NULL,
  BloodDisease int NULL,
  BronchialAsthma int NULL,
  Others nvarchar(max) NULL
);
GO

IF OBJECT_ID(N'dbo.tbMasterDependent', N'U') IS NULL
BEGIN
  BEGIN TRANSACTION;
  CREATE TABLE dbo.tbMasterDependent (
    SeqNum nvarchar(20) NOT NULL, -- the hospital number
    Name nvarchar(255) NOT NULL,
    BirthDate date NULL
  );
  CREATE INDEX tbMasterDependent_SeqNum ON dbo.tbMasterDependent (SeqNum);
  COMMIT TRANSACTION;
END
GO

-- Patients whose account is the one for employees' medicines.
IF OBJECT_ID(N'dbo.tbMasterAccount', N'U') IS NULL
CREATE TABLE dbo.tbMasterAccount (
  HospNum nvarchar(20) NOT NULL PRIMARY KEY
);
GO

IF OBJECT_ID(N'dbo.tbOutPatient', N'U') IS NULL
BEGIN
  BEGIN TRANSACTION;
  CREATE TABLE dbo.tbOutPatient (
    IDNum nvarchar(20) NOT NULL PRIMARY KEY,
    HospNum nvarchar(20) NOT NULL REFERENCES dbo.tbMaster (HospNum),
    AdmDate datetime NOT NULL,
    AccountNum nvarchar(50) NULL, -- the hospital number where the patient pays
    AccountRemarks nvarchar(max) NULL,
    CardNumber nvarchar(255) NULL,
    HMOApprovalNum nvarchar(255) NULL,
    HospPlan nvarchar(20) NULL,
    PatientType nvarchar(20) NULL,
    PayCode nvarchar(50) NULL,
    ConsultationType nvarchar(20) NULL, -- 'W' with bill, 'R' or 'H' a purpose
    VisitKind nvarchar(20) NULL,
    ServiceID1 nvarchar(50) NULL,
    ServiceID2 nvarchar(50) NULL,
    ServiceID3 nvarchar(50) NULL,
    DoctorID1 nvarchar(50) NULL,
    DoctorID2 nvarchar(50) NULL,
    DoctorID3 nvarchar(50) NULL,
    DoctorID4 nvarchar(50) NULL,
    DoctorID5 nvarchar(50) NULL,
    CauseofConsultationID nvarchar(50) NULL,
    CauseofConsultationID1 nvarchar(50) NULL,
    CauseofConsultationID2 nvarchar(50) NULL,
    CauseofConsultationID3 nvarchar(50) NULL,
    ChiefComplaints nvarchar(max) NULL,
    Remarks nvarchar(max) NULL,
    Height nvarchar(255) NULL,
    Weight nvarchar(255) NULL,
    Temperature nvarchar(255) NULL,
    BloodPressure nvarchar(255) NULL,
    PulseRate nvarchar(255) NULL,
    RespiratoryRate nvarchar(255) NULL,
    PerUnit nvarchar(20) NULL,
    SeniorCitizenID nvarchar(50) NULL,
    OPDStatus nvarchar(20) NOT NULL DEFAULT N'',
    isWalkIn bit NULL DEFAULT 0,
    Corvane bit NULL DEFAULT 0,
    isMABRate bit NULL DEFAULT 0,
    isChemo bit NULL DEFAULT 0,
    isHemodialysis bit NULL DEFAULT 0,
    isRadiotherapy bit NULL DEFAULT 0,
    isForDeposit bit NULL DEFAULT 0,
    ExpirationDate datetime NULL,
    PatientClass nvarchar(255) NULL,
    UserID nvarchar(128) NULL,
    BillingDate datetime NULL,
    dcrDate datetime NULL,
    ConsultationDate datetime NULL
  );
  CREATE INDEX tbOutPatient_HospNum ON dbo.tbOutPatient (HospNum, AdmDate);
  COMMIT TRANSACTION;
END
GO

-- Informant and guarantor of a visit: they arrive with the patient's master, before the visit itself.
IF OBJECT_ID(N'dbo.tbOutPatientContact', N'U') IS NULL
CREATE TABLE dbo.tbOutPatientContact (
  IDNum nvarchar(20) NOT NULL PRIMARY KEY,
  GuarantorName nvarchar(255) NULL,
  GuarantorAddress nvarchar(500) NULL,
  GuarantorTelnum nvarchar(255) NULL,
  GuarantorEmployer nvarchar(255) NULL,
  GuarantorEmployerAddress nvarchar(500) NULL,
  InformantName nvarchar(255) NULL,
  InformantAddress nvarchar(500) NULL,
  InformantRelation nvarchar(255) NULL,
  InformantTelNum nvarchar(255) NULL,
  SeniorCitizenIDNo nvarchar(255) NULL
);
GO

IF OBJECT_ID(N'dbo.tbOutPatientHistory', N'U') IS NULL
CREATE TABLE dbo.tbOutPatientHistory (
  IDNum nvarchar(20) NOT NULL PRIMARY KEY,
  HospNum nvarchar(20) NOT NULL,
  ServiceID nvarchar(50) NULL,
  DoctorID nvarchar(50) NULL,
  DiagnosisID1 nvarchar(50) NULL,
  DiagnosisID2 nvarchar(50) NULL,
  DiagnosisID3 nvarchar(50) NULL,
  Findings nvarchar(max) NULL,
  Medications nvarchar(max) NULL,
  Remarks nvarchar(max) NULL,
  CauseofConsultationID1 nvarchar(50) NULL,
  CauseofConsultationID2 nvarchar(50) NULL,
  CauseofConsultationID3 nvarchar(50) NULL,
  ChiefComplaint nvarchar(max) NULL
);
GO

IF OBJECT_ID(N'dbo.tbOutProfile', N'U') IS NULL
CREATE TABLE dbo.tbOutProfile (
  IDNum nvarchar(20) NOT NULL PRIMARY KEY,
  HospNum nvarchar(20) NOT NULL,
  LMP date NULL
);
GO

IF OBJECT_ID(N'dbo.tbOpdHMOLOA', N'U') IS NULL
CREATE TABLE dbo.tbOpdHMOLOA (
  IDNum nvarchar(20) NOT NULL PRIMARY KEY,
  ApprovalNo nvarchar(255) NULL,
  LOAAmount decimal(18, 2) NULL,
  LOADateInformed datetime NULL,
  LOAReceiver nvarchar(255) NULL,
  LOADateReceived datetime NULL,
  LOAStatus nvarchar(255) NULL,
  LOARemarks nvarchar(max) NULL
);
GO

-- In-patient admissions; their numbers are numeric. A patient is confined while there is no discharge date.
IF OBJECT_ID(N'dbo.tbPatient', N'U') IS NULL
BEGIN
  BEGIN TRANSACTION;
  CREATE TABLE dbo.tbPatient (
    IdNum nvarchar(20) NOT NULL PRIMARY KEY,
    HospNum nvarchar(20) NOT NULL REFERENCES dbo.tbMaster (HospNum),
    AdmDate datetime NOT NULL,
    DcrDate datetime NULL
  );
  CREATE INDEX tbPatient_HospNum ON dbo.tbPatient (HospNum);
  COMMIT TRANSACTION;
END
GO

IF OBJECT_ID(N'dbo.tbOPDUserLog', N'U') IS NULL
CREATE TABLE dbo.tbOPDUserLog (
  IDNum nvarchar(20) NULL,
  UserID nvarchar(128) NULL,
  Action nvarchar(255) NULL,
  LoggedAt datetime NULL
);
GO

IF OBJECT_ID(N'dbo.tbOPDRevokedLog', N'U') IS NULL
CREATE TABLE dbo.tbOPDRevokedLog (
  IDNum nvarchar(20) NULL,
  UserID nvarchar(128) NULL,
  Action nvarchar(255) NULL,
  LoggedAt datetime NULL
);
GO

-- The numbers that a session has drawn and not written anything under yet: its first row under such a number is a new
-- one, and never takes the place of another's.
IF OBJECT_ID(N'dbo.tbDrawnNumber', N'U') IS NULL
CREATE TABLE dbo.tbDrawnNumber (
  Session int NOT NULL,
  Number nvarchar(20) NOT NULL,
  DrawnAt datetime NOT NULL DEFAULT GETDATE(),
  PRIMARY KEY (Session, Number)
);
GO
