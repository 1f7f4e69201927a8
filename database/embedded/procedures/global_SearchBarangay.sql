-- database: Build_File
-- parameters: BarangayID text, Mode text
SELECT BarangayID, Barangay FROM Build_File_tbCoBarangay WHERE BarangayID = :BarangayID;
