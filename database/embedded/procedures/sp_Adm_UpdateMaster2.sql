-- parameters: HospNum text, BirthPlace text, NationalityID text, ReligionID text, Spouse text, mother text, Father text, Employer text, EmployerTelNum text, EmployerAddress text, ContactName text, ContactAddress text, ContactRelation text, ContactTelNum text, SpouseAddress text, SpouseTelNum text, FatherAddress text, FatherTelNum text, motherAddress text, motherTelNum text, BarangayCaptain text, Position text, EmploymentType number, EmploymentLocation number, EmployerFax text, EmployerEmail text, SpouseEmpName text, SpouseEmpAddress text, SpouseEmpTelNum text, SpouseEmpFax text, SpouseEmpEmail text, PhilHealth number, Unused text, HouseHold text, Email text, CellNum text
INSERT OR REPLACE INTO Patient_Data_tbMaster2 (HospNum, BirthPlace, NationalityID, ReligionID, Spouse, mother, Father,
  Employer, EmployerTelNum, EmployerAddress, ContactName, ContactAddress, ContactRelation, ContactTelNum, SpouseAddress,
  SpouseTelNum, FatherAddress, FatherTelNum, motherAddress, motherTelNum, BarangayCaptain, Position, EmploymentType,
  EmploymentLocation, EmployerFax, EmployerEmail, SpouseEmpName, SpouseEmpAddress, SpouseEmpTelNum, SpouseEmpFax,
  SpouseEmpEmail, PhilHealth, HouseHold, Email, CellNum)
VALUES (:HospNum, :BirthPlace, :NationalityID, :ReligionID, :Spouse, :mother, :Father, :Employer, :EmployerTelNum,
  :EmployerAddress, :ContactName, :ContactAddress, :ContactRelation, :ContactTelNum, :SpouseAddress, :SpouseTelNum,
  :FatherAddress, :FatherTelNum, :motherAddress, :motherTelNum, :BarangayCaptain, :Position, :EmploymentType,
  :EmploymentLocation, :EmployerFax, :EmployerEmail, :SpouseEmpName, :SpouseEmpAddress, :SpouseEmpTelNum, :SpouseEmpFax,
  :SpouseEmpEmail, :PhilHealth, :HouseHold, :Email, :CellNum);
