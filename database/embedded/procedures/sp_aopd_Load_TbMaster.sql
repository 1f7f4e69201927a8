-- parameters: HospNum text
SELECT m.HospNum, m.LastName, m.FirstName, m.MiddleName, m.Title, m.HouseStreet, m.Barangay, m.ZipCode, m.Sex,
       m.BirthDate, m.telnum, m.CivilStatus, m.BloodType, m.Occupation, m.Employer, m.EmployerAddress,
       m.EmployerTelNum, e.BirthPlace, e.NationalityID, coalesce(e.ReligionID, m.ReligionID) AS ReligionID,
       n.Nationality, r.Religion, a.Town || ', ' || a.Province AS Province
FROM Patient_Data_tbMaster m
LEFT JOIN Patient_Data_tbMaster2 e ON e.HospNum = m.HospNum
LEFT JOIN Build_File_tbCoNationality n ON n.NationalityID = e.NationalityID
LEFT JOIN Build_File_tbCoReligion r ON r.ReligionID = coalesce(e.ReligionID, m.ReligionID)
LEFT JOIN Build_File_tbCoAddress a ON a.ZipCode = m.ZipCode
WHERE m.HospNum = :HospNum;
