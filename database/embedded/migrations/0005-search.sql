-- Patients are fetched by the row's own number, and looked for by columns that the table works out by itself.
CREATE TABLE NewMaster (
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
INSERT INTO NewMaster (HospNum, LastName, FirstName, MiddleName, Title, HouseStreet, Barangay, ZipCode, Sex,
  BirthDate, Age, telnum, CivilStatus, BloodType, Occupation, Employer, EmployerAddress, EmployerTelNum,
  ReligionID, PHICNum, GSISNum, SSSNum, FileNum)
SELECT HospNum, LastName, FirstName, MiddleName, Title, HouseStreet, Barangay, ZipCode, Sex,
  BirthDate, Age, telnum, CivilStatus, BloodType, Occupation, Employer, EmployerAddress, EmployerTelNum,
  ReligionID, PHICNum, GSISNum, SSSNum, FileNum
FROM Patient_Data_tbMaster ORDER BY HospNum;
DROP TABLE Patient_Data_tbMaster;
ALTER TABLE NewMaster RENAME TO Patient_Data_tbMaster;

CREATE INDEX Patient_Data_tbMaster_Search ON Patient_Data_tbMaster (SearchName, Sex, BirthDate, LastName, FirstName,
  MiddleName, HospNum, HouseStreet, Barangay);
CREATE INDEX Patient_Data_tbMaster_First ON Patient_Data_tbMaster (SearchName, SearchFirst);
CREATE INDEX Patient_Data_tbMaster_Name ON Patient_Data_tbMaster (LastName, FirstName, BirthDate);
CREATE INDEX Patient_Data_tbMaster_BirthDate ON Patient_Data_tbMaster (BirthDate, SearchName);
CREATE INDEX Patient_Data_tbMaster_PHIC ON Patient_Data_tbMaster (PHICNum) WHERE PHICNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_GSIS ON Patient_Data_tbMaster (GSISNum) WHERE GSISNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_SSS ON Patient_Data_tbMaster (SSSNum) WHERE SSSNum IS NOT NULL;
CREATE INDEX Patient_Data_tbMaster_FileNum ON Patient_Data_tbMaster (FileNum) WHERE FileNum IS NOT NULL;
