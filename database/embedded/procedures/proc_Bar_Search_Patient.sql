-- parameters: HospNum text, Mode text
SELECT LastName, FirstName, MiddleName, HospNum, BirthDate, age_on(BirthDate, now()) AS Age,
       address_text(HouseStreet, Barangay) AS Address
FROM Patient_Data_tbMaster WHERE HospNum = :HospNum;
