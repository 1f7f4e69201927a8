-- parameters: Criteria text
-- An exact code gives one row; otherwise the codes and names that contain what was typed.
SELECT Barangay AS Description, BarangayID AS Code FROM Build_File_tbCoBarangay
WHERE CASE WHEN EXISTS (SELECT 1 FROM Build_File_tbCoBarangay WHERE BarangayID = :Criteria)
      THEN BarangayID = :Criteria
      ELSE contains(BarangayID, :Criteria) OR contains(Barangay, :Criteria) END
ORDER BY Barangay, BarangayID;
