-- parameters: DoctorID text
SELECT DoctorID, LastName, FirstName, MiddleName FROM Build_File_tbCoDoctor WHERE DoctorID = :DoctorID;
