-- The embedded hospital database. Databases of the server are prefixes here: Patient_Data..tbMaster is the table
-- Patient_Data_tbMaster. The collation OPD compares as the server does: blind to letter case and to trailing blanks.
-- Dates are ISO text. Patient_Data_tbHospitalInfo uses plain collations, so that any SQLite shell can change it.

CREATE TABLE Patient_Data_tbHospitalInfo (
  ClientName TEXT NOT NULL DEFAULT '',
  Company TEXT,
  Address1 TEXT,
  isHMORate INTEGER DEFAULT 0,
  IsOPDstatRate INTEGER DEFAULT 0,
  IsAllowOPDShowLabSpecimen INTEGER DEFAULT 0,
  IsAllowOPDChargeChangePrice INTEGER DEFAULT 0,
  isAllowOPDRegisterInpatient INTEGER DEFAULT 0,
  IsAllowOPDCheckLabSection INTEGER DEFAULT 0,
  IsAllowOPDAssessmentRateG INTEGER DEFAULT 0,
  isAllowCorvane INTEGER DEFAULT 0,
  isAllowOPDSearchBarangay INTEGER DEFAULT 0,
  isAllowOPDSearchCardNumber INTEGER DEFAULT 0,
  IsAllowOPDMABRate INTEGER DEFAULT 0,
  IsAllowOPDUpdateHMOLOA INTEGER DEFAULT 0,
  IsAllowOPDExportReport INTEGER DEFAULT 0,
  IsAllowOPDSearchDocBySched INTEGER DEFAULT 0,
  IsAllowOPDPatientClass INTEGER DEFAULT 0,
  IsAllowOPDShowDiscount INTEGER DEFAULT 0,
  isAllowOPDPayCode INTEGER DEFAULT 0,
  isAllowMultipleRequest INTEGER DEFAULT 0,
  allowEndConsultation INTEGER DEFAULT 0,
  isAllowOPFileNumbering INTEGER DEFAULT 0,
  isAllowCreateNewIDnum INTEGER DEFAULT 0,
  isAllowSpecializedCompanyRate INTEGER DEFAULT 0
);

-- The numbers that are given out; each is the last one given.
CREATE TABLE Patient_Data_tbCounter (
  Name TEXT PRIMARY KEY,
  Last INTEGER NOT NULL
);

-- A row has a number of its own, because hospital numbers are texts that compare by a collation. How names are looked for
-- (search_name) the table works out by itself. The index "Search" holds all that the list of patients shows, so that
-- thousands of namesakes are read one after the other; the others lead to a few rows each.
CREATE TABLE Patient_Data_tbMaster (
  HospNum TEXT COLLATE OPD NOT NULL UNIQUE,
  LastName TEXT COLLATE OPD NOT NULL,
  FirstName TEXT COLLATE OPD NOT NULL,
  MiddleName TEXT COLLATE OPD,
  Title TEXT,
  HouseStreet TEXT,
  Barangay TEXT,
  ZipCode TEXT COLLATE OPD,
  Sex TEXT COLLATE OPD,
  BirthDate DATE,
  Age TEXT,
  telnum TEXT,
  CivilStatus TEXT,
  BloodType TEXT,
  Occupation TEXT,
  Employer TEXT,
  EmployerAddress TEXT,
  EmployerTelNum TEXT,
  ReligionID TEXT COLLATE OPD,
  PHICNum TEXT COLLATE OPD_NUMBER,
  GSISNum TEXT COLLATE OPD_NUMBER,
  SSSNum TEXT COLLATE OPD_NUMBER,
  FileNum INTEGER,
  SearchName TEXT NOT NULL AS (search_name(LastName)) STORED,
  SearchFirst TEXT NOT NULL AS (search_name(FirstName)) STORED
);
CREATE INDEX Patient_Data_tbMaster_Search ON Patient_Data_tbMaster (SearchName, Sex, BirthDate, LastName, FirstName,
  MiddleName, HospNum, HouseStreet, Barangay);
CREATE INDEX Patient_Data_tbMaster_First ON Patient_Data_tbMaster (SearchName, SearchFirst);
CREATE INDEX Patient_Data_tbMaster_Name ON Patient_Data_tbMaster (LastName, FirstName, BirthDate);
CREATE INDEX Patient_Data_tbMaster_BirthDate ON Patient_Data_tbMaster (BirthDate, SearchName);
CREATE INDEX Patient_Data_tbMaster_PHIC ON Patient_Data_tbMaster (PHICNum) WHERE PHICNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_GSIS ON Patient_Data_tbMaster (GSISNum) WHERE GSISNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_SSS ON Patient_Data_tbMaster (SSSNum) WHERE SSSNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_FileNum ON Patient_Data_tbMaster (FileNum) WHERE FileNum IS NOT NULL;

-- The extended record: contacts, parents, spouse, employment.
CREATE TABLE Patient_Data_tbMaster2 (
  HospNum TEXT COLLATE OPD PRIMARY KEY,
  BirthPlace TEXT,
  NationalityID TEXT COLLATE OPD,
  ReligionID TEXT COLLATE OPD,
  Spouse TEXT,
  mother TEXT,
  Father TEXT,
  Employer TEXT,
  EmployerTelNum TEXT,
  EmployerAddress TEXT,
  ContactName TEXT,
  ContactAddress TEXT,
  ContactRelation TEXT,
  ContactTelNum TEXT,
  SpouseAddress TEXT,
  SpouseTelNum TEXT,
  FatherAddress TEXT,
  FatherTelNum TEXT,
  motherAddress TEXT,
  motherTelNum TEXT,
  BarangayCaptain TEXT,
  Position TEXT,
  EmploymentType INTEGER,
  EmploymentLocation INTEGER,
  EmployerFax TEXT,
  EmployerEmail TEXT,
  SpouseEmpName TEXT,
  SpouseEmpAddress TEXT,
  SpouseEmpTelNum TEXT,
  SpouseEmpFax TEXT,
  SpouseEmpEmail TEXT,
  PhilHealth INTEGER,
  HouseHold TEXT,
  Email TEXT,
  CellNum TEXT
) WITHOUT ROWID;

CREATE TABLE Patient_Data_tbMasterAllergies (
  HospNum TEXT COLLATE OPD PRIMARY KEY,
  AllergyID1 TEXT, AllergyID2 TEXT, AllergyID3 TEXT, AllergyID4 TEXT, AllergyID5 TEXT
) WITHOUT ROWID;

CREATE TABLE Patient_Data_tbMasterMedicalHistory (
  HospNum TEXT COLLATE OPD PRIMARY KEY,
  Hypertension INTEGER, Diabetes INTEGER, Hepatitis INTEGER, Allergies INTEGER, Tubercolosis INTEGER,
  PepticUlcer INTEGER, BloodDisease INTEGER, BronchialAsthma INTEGER, Others TEXT
) WITHOUT ROWID;

CREATE TABLE Patient_Data_tbMasterDependent (
  SeqNum TEXT COLLATE OPD NOT NULL, -- the hospital number
  Name TEXT NOT NULL,
  BirthDate DATE
);
CREATE INDEX Patient_Data_tbMasterDependent_SeqNum ON Patient_Data_tbMasterDependent (SeqNum);

-- Patients whose account is the one for employees' medicines.
CREATE TABLE Patient_Data_tbMasterAccount (
  HospNum TEXT COLLATE OPD PRIMARY KEY
) WITHOUT ROWID;

CREATE TABLE Patient_Data_tbOutPatient (
  IDNum TEXT COLLATE OPD PRIMARY KEY,
  HospNum TEXT COLLATE OPD NOT NULL REFERENCES Patient_Data_tbMaster (HospNum),
  AdmDate DATETIME NOT NULL,
  AccountNum TEXT COLLATE OPD, -- the hospital number where the patient pays
  AccountRemarks TEXT,
  CardNumber TEXT,
  HMOApprovalNum TEXT,
  HospPlan TEXT,
  PatientType TEXT,
  PayCode TEXT,
  ConsultationType TEXT, -- 'W' with bill, 'R' or 'H' a purpose
  VisitKind TEXT,
  ServiceID1 TEXT, ServiceID2 TEXT, ServiceID3 TEXT,
  DoctorID1 TEXT, DoctorID2 TEXT, DoctorID3 TEXT, DoctorID4 TEXT, DoctorID5 TEXT,
  CauseofConsultationID TEXT,
  CauseofConsultationID1 TEXT, CauseofConsultationID2 TEXT, CauseofConsultationID3 TEXT,
  ChiefComplaints TEXT,
  Remarks TEXT,
  Height TEXT, Weight TEXT, Temperature TEXT, BloodPressure TEXT, PulseRate TEXT, RespiratoryRate TEXT,
  PerUnit TEXT,
  SeniorCitizenID TEXT,
  OPDStatus TEXT COLLATE OPD NOT NULL DEFAULT '',
  isWalkIn BIT DEFAULT 0,
  Corvane BIT DEFAULT 0,
  isMABRate BIT DEFAULT 0,
  isChemo BIT DEFAULT 0,
  isHemodialysis BIT DEFAULT 0,
  isRadiotherapy BIT DEFAULT 0,
  isForDeposit BIT DEFAULT 0,
  ExpirationDate DATETIME,
  PatientClass TEXT,
  UserID TEXT,
  BillingDate DATETIME,
  dcrDate DATETIME,
  ConsultationDate DATETIME
) WITHOUT ROWID;
CREATE INDEX Patient_Data_tbOutPatient_HospNum ON Patient_Data_tbOutPatient (HospNum, AdmDate);

-- Informant and guarantor of a visit: they arrive with the patient's master, before the visit itself.
CREATE TABLE Patient_Data_tbOutPatientContact (
  IDNum TEXT COLLATE OPD PRIMARY KEY,
  GuarantorName TEXT, GuarantorAddress TEXT, GuarantorTelnum TEXT, GuarantorEmployer TEXT,
  GuarantorEmployerAddress TEXT,
  InformantName TEXT, InformantAddress TEXT, InformantRelation TEXT, InformantTelNum TEXT,
  SeniorCitizenIDNo TEXT
) WITHOUT ROWID;

CREATE TABLE Patient_Data_tbOutPatientHistory (
  IDNum TEXT COLLATE OPD PRIMARY KEY,
  HospNum TEXT COLLATE OPD NOT NULL,
  ServiceID TEXT, DoctorID TEXT,
  DiagnosisID1 TEXT, DiagnosisID2 TEXT, DiagnosisID3 TEXT,
  Findings TEXT, Medications TEXT, Remarks TEXT,
  CauseofConsultationID1 TEXT, CauseofConsultationID2 TEXT, CauseofConsultationID3 TEXT,
  ChiefComplaint TEXT
) WITHOUT ROWID;

CREATE TABLE Patient_Data_tbOutProfile (
  IDNum TEXT COLLATE OPD PRIMARY KEY,
  HospNum TEXT COLLATE OPD NOT NULL,
  LMP DATE
) WITHOUT ROWID;

CREATE TABLE Patient_Data_tbOpdHMOLOA (
  IDNum TEXT COLLATE OPD PRIMARY KEY,
  ApprovalNo TEXT,
  LOAAmount REAL,
  LOADateInformed DATETIME,
  LOAReceiver TEXT,
  LOADateReceived DATETIME,
  LOAStatus TEXT,
  LOARemarks TEXT
) WITHOUT ROWID;

-- In-patient admissions; their numbers are numeric. A patient is confined while there is no discharge date.
CREATE TABLE Patient_Data_tbPatient (
  IdNum TEXT COLLATE OPD PRIMARY KEY,
  HospNum TEXT COLLATE OPD NOT NULL REFERENCES Patient_Data_tbMaster (HospNum),
  AdmDate DATETIME NOT NULL,
  DcrDate DATETIME
) WITHOUT ROWID;
CREATE INDEX Patient_Data_tbPatient_HospNum ON Patient_Data_tbPatient (HospNum);

CREATE TABLE Patient_Data_tbOPDUserLog (IDNum TEXT, UserID TEXT, Action TEXT, LoggedAt DATETIME);
CREATE TABLE Patient_Data_tbOPDRevokedLog (IDNum TEXT, UserID TEXT, Action TEXT, LoggedAt DATETIME);

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

CREATE TABLE billing_tbBill (
  IDNum TEXT COLLATE OPD PRIMARY KEY,
  Amount REAL NOT NULL
) WITHOUT ROWID;

-- The reference files, code first. The lists of database/reference fill them.
CREATE TABLE Build_File_tbCoAddress (
  ZipCode TEXT COLLATE OPD PRIMARY KEY, Town TEXT COLLATE OPD, Province TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoNationality (NationalityID TEXT COLLATE OPD PRIMARY KEY, Nationality TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoReligion (ReligionID TEXT COLLATE OPD PRIMARY KEY, Religion TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoBarangay (BarangayID TEXT COLLATE OPD PRIMARY KEY, Barangay TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoService (ServiceID TEXT COLLATE OPD PRIMARY KEY, Service TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoAllergy (AllergyID TEXT COLLATE OPD PRIMARY KEY, Allergy TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoDoctor (
  DoctorID TEXT COLLATE OPD PRIMARY KEY, LastName TEXT COLLATE OPD, FirstName TEXT COLLATE OPD, MiddleName TEXT,
  ServiceID1 TEXT COLLATE OPD, ServiceID2 TEXT COLLATE OPD, ServiceID3 TEXT COLLATE OPD, -- the specializations
  DutyDays TEXT NOT NULL DEFAULT '', -- the weekdays on duty, Sunday 0 to Saturday 6, such as 135
  Consultations INTEGER NOT NULL DEFAULT 0);
-- A doctor as the lookups show one: by the full name.
CREATE VIEW Build_File_vwDoctor AS
SELECT DoctorID,
       trim(LastName) || ', ' || trim(FirstName) || iif(trim(coalesce(MiddleName, '')) = '', '', ', ' || MiddleName)
         AS FullName,
       ServiceID1, ServiceID2, ServiceID3, DutyDays, Consultations
FROM Build_File_tbCoDoctor;
CREATE TABLE Build_File_tbCoCompany (
  AccountNum TEXT COLLATE OPD PRIMARY KEY, Company TEXT COLLATE OPD,
  Class TEXT COLLATE OPD); -- P insurance, H health plan, S employees' medicine, C company, G government, M members
CREATE TABLE Build_File_tbCoPayCode (
  PayCodeID TEXT COLLATE OPD PRIMARY KEY, PayCode TEXT, Status TEXT COLLATE OPD DEFAULT 'A');
CREATE TABLE Build_File_tbCoAdmissionType (
  AdmissionTypeID TEXT COLLATE OPD PRIMARY KEY, AdmissionType TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoChiefComplaint (
  ChiefComplaintID TEXT COLLATE OPD PRIMARY KEY, ChiefComplaint TEXT COLLATE OPD, BodySystem TEXT COLLATE OPD);
CREATE TABLE Build_File_tbCoOtherRevenue (
  RevenueID TEXT COLLATE OPD PRIMARY KEY, SectionID TEXT COLLATE OPD, OtherRevenue TEXT COLLATE OPD);
-- The long lists lie in the order in which they are shown, with all that is shown of them.
CREATE INDEX Build_File_tbCoAddress_Town ON Build_File_tbCoAddress (Town, ZipCode, Province);
CREATE INDEX Build_File_tbCoDoctor_LastName ON Build_File_tbCoDoctor (LastName, DoctorID, FirstName);
CREATE INDEX Build_File_tbCoCompany_Company ON Build_File_tbCoCompany (Company, AccountNum, Class);
