-- parameters: Criteria text
-- An exact code gives one row; otherwise the names that begin with what was typed.
SELECT Barangay AS Description, BarangayID AS Code FROM Build_File_tbCoBarangay
WHERE BarangayID = :Criteria
   OR (Barangay LIKE :Criteria || '%'
       AND NOT EXISTS (SELECT 1 FROM Build_File_tbCoBarangay WHERE BarangayID = :Criteria))
ORDER BY Barangay;
