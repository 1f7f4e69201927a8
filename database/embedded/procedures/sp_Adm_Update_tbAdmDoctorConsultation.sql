-- parameters: DoctorID text
UPDATE Build_File_tbCoDoctor SET Consultations = Consultations + 1 WHERE DoctorID = :DoctorID;
