-- Member numbers are found with and without their hyphens and blanks, last names without apostrophes and accents.
CREATE TABLE NewMaster (
  HospNum TEXT COLLATE OPD PRIMARY KEY,
  LastName TEXT COLLATE OPD NOT NULL,
  FirstName TEXT COLLATE OPD NOT NULL,
  MiddleName TEXT COLLATE OPD,
  SearchName TEXT NOT NULL,
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
  FileNum INTEGER
) WITHOUT ROWID;
INSERT INTO NewMaster SELECT * FROM Patient_Data_tbMaster;
UPDATE NewMaster SET SearchName = search_name(LastName);
DROP TABLE Patient_Data_tbMaster;
ALTER TABLE NewMaster RENAME TO Patient_Data_tbMaster;

CREATE INDEX Patient_Data_tbMaster_Search ON Patient_Data_tbMaster (SearchName, Sex, BirthDate);
CREATE INDEX Patient_Data_tbMaster_Name ON Patient_Data_tbMaster (LastName, FirstName, MiddleName, Sex, BirthDate);
CREATE INDEX Patient_Data_tbMaster_BirthDate ON Patient_Data_tbMaster (BirthDate, LastName);
CREATE INDEX Patient_Data_tbMaster_PHIC ON Patient_Data_tbMaster (PHICNum) WHERE PHICNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_GSIS ON Patient_Data_tbMaster (GSISNum) WHERE GSISNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_SSS ON Patient_Data_tbMaster (SSSNum) WHERE SSSNum IS NOT NULL;
