-- The long lists lie in the order in which they are shown, with all that is shown of them.
CREATE INDEX Build_File_tbCoAddress_Town ON Build_File_tbCoAddress (Town, ZipCode, Province);
CREATE INDEX Build_File_tbCoDoctor_LastName ON Build_File_tbCoDoctor (LastName, DoctorID, FirstName);
CREATE INDEX Build_File_tbCoCompany_Company ON Build_File_tbCoCompany (Company, AccountNum, Class);
