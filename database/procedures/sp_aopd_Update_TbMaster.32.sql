-- parameters: HospNum text, LastName text, FirstName text, MiddleName text, HouseStreet text, Barangay text, ZipCode text, Sex text, BirthDate date, TelNum text, Age text, Employer text, EmployerAddress text, EmployerTelNum text, IDNum text, GuarantorName text, GuarantorAddress text, GuarantorTelnum text, GuarantorEmployer text, InformantName text, InformantAddress text, InformantRelation text, InformantTelNum text, CivilStatus text, GuarantorEmployerAddress text, ReligionID text, SeniorCitizen text, SeniorCitizenAgain text, SeniorCitizenIDNo text, Occupation text, BloodType text, Title text
INSERT INTO Patient_Data_tbMaster (HospNum, LastName, FirstName, MiddleName, SearchName, Title, HouseStreet, Barangay,
  ZipCode, Sex, BirthDate, Age, telnum, CivilStatus, BloodType, Occupation, Employer, EmployerAddress, EmployerTelNum)
VALUES (:HospNum, :LastName, :FirstName, :MiddleName, search_name(:LastName), :Title, :HouseStreet, :Barangay, :ZipCode,
  :Sex, :BirthDate, :Age, :TelNum, :CivilStatus, :BloodType, :Occupation, :Employer, :EmployerAddress, :EmployerTelNum)
ON CONFLICT (HospNum) DO UPDATE SET LastName = excluded.LastName, FirstName = excluded.FirstName,
  MiddleName = excluded.MiddleName, SearchName = excluded.SearchName, Title = excluded.Title,
  HouseStreet = excluded.HouseStreet, Barangay = excluded.Barangay, ZipCode = excluded.ZipCode, Sex = excluded.Sex,
  BirthDate = excluded.BirthDate, Age = excluded.Age, telnum = excluded.telnum, CivilStatus = excluded.CivilStatus,
  BloodType = excluded.BloodType, Occupation = excluded.Occupation, Employer = excluded.Employer,
  EmployerAddress = excluded.EmployerAddress, EmployerTelNum = excluded.EmployerTelNum;
INSERT OR REPLACE INTO Patient_Data_tbOutPatientContact (IDNum, GuarantorName, GuarantorAddress, GuarantorTelnum,
  GuarantorEmployer, GuarantorEmployerAddress, InformantName, InformantAddress, InformantRelation, InformantTelNum,
  SeniorCitizenIDNo)
VALUES (:IDNum, :GuarantorName, :GuarantorAddress, :GuarantorTelnum, :GuarantorEmployer, :GuarantorEmployerAddress,
  :InformantName, :InformantAddress, :InformantRelation, :InformantTelNum, :SeniorCitizenIDNo);
UPDATE Patient_Data_tbMaster SET ReligionID = :ReligionID WHERE HospNum = :HospNum;
