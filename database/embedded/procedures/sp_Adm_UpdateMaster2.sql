-- parameters: HospNum text, BirthPlace text, NationalityID text, ReligionID text, Spouse text, mother text, Father text, Employer text, EmployerTelNum text, EmployerAddress text, ContactName text, ContactAddress text, ContactRelation text, ContactTelNum text, SpouseAddress text, SpouseTelNum text, FatherAddress text, FatherTelNum text, motherAddress text, motherTelNum text, BarangayCaptain text, Position text, EmploymentType number, EmploymentLocation number, EmployerFax text, EmployerEmail text, SpouseEmpName text, SpouseEmpAddress text, SpouseEmpTelNum text, SpouseEmpFax text, SpouseEmpEmail text, PhilHealth number, Unused text, HouseHold text, Email text, CellNum text
INSERT OR IGNORE INTO Patient_Data_tbMaster2 (HospNum) VALUES (:HospNum);
-- The employer was compared with the master's.
WITH old AS (SELECT * FROM Patient_Data_tbMaster2 WHERE HospNum = :HospNum)
-- include: audit_head.sqlpart
  SELECT 'BirthPlace' AS What, BirthPlace AS OldValue, :BirthPlace AS NewValue FROM old
  UNION ALL SELECT 'NationalityID', NationalityID, :NationalityID FROM old
  UNION ALL SELECT 'ReligionID', ReligionID, :ReligionID FROM old
  UNION ALL SELECT 'Spouse', Spouse, :Spouse FROM old
  UNION ALL SELECT 'mother', mother, :mother FROM old
  UNION ALL SELECT 'Father', Father, :Father FROM old
  UNION ALL SELECT 'ContactName', ContactName, :ContactName FROM old
  UNION ALL SELECT 'ContactAddress', ContactAddress, :ContactAddress FROM old
  UNION ALL SELECT 'ContactRelation', ContactRelation, :ContactRelation FROM old
  UNION ALL SELECT 'ContactTelNum', ContactTelNum, :ContactTelNum FROM old
  UNION ALL SELECT 'SpouseAddress', SpouseAddress, :SpouseAddress FROM old
  UNION ALL SELECT 'SpouseTelNum', SpouseTelNum, :SpouseTelNum FROM old
  UNION ALL SELECT 'FatherAddress', FatherAddress, :FatherAddress FROM old
  UNION ALL SELECT 'FatherTelNum', FatherTelNum, :FatherTelNum FROM old
  UNION ALL SELECT 'motherAddress', motherAddress, :motherAddress FROM old
  UNION ALL SELECT 'motherTelNum', motherTelNum, :motherTelNum FROM old
  UNION ALL SELECT 'BarangayCaptain', BarangayCaptain, :BarangayCaptain FROM old
  UNION ALL SELECT 'Position', Position, :Position FROM old
  UNION ALL SELECT 'EmploymentType', coalesce(EmploymentType, 0), CAST(:EmploymentType AS INTEGER) FROM old
  UNION ALL SELECT 'EmploymentLocation', coalesce(EmploymentLocation, 0), CAST(:EmploymentLocation AS INTEGER) FROM old
  UNION ALL SELECT 'EmployerFax', EmployerFax, :EmployerFax FROM old
  UNION ALL SELECT 'EmployerEmail', EmployerEmail, :EmployerEmail FROM old
  UNION ALL SELECT 'SpouseEmpName', SpouseEmpName, :SpouseEmpName FROM old
  UNION ALL SELECT 'SpouseEmpAddress', SpouseEmpAddress, :SpouseEmpAddress FROM old
  UNION ALL SELECT 'SpouseEmpTelNum', SpouseEmpTelNum, :SpouseEmpTelNum FROM old
  UNION ALL SELECT 'SpouseEmpFax', SpouseEmpFax, :SpouseEmpFax FROM old
  UNION ALL SELECT 'SpouseEmpEmail', SpouseEmpEmail, :SpouseEmpEmail FROM old
  UNION ALL SELECT 'PhilHealth', coalesce(PhilHealth, 0), CAST(:PhilHealth AS INTEGER) FROM old
  UNION ALL SELECT 'HouseHold', HouseHold, :HouseHold FROM old
  UNION ALL SELECT 'Email', Email, :Email FROM old
  UNION ALL SELECT 'CellNum', CellNum, :CellNum FROM old
-- include: audit_tail.sqlpart
  AND coalesce(this.IsNew, 0) = 0;
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
