-- parameters: Criteria text
-- An exact code gives one row; otherwise the names that begin with what was typed.
SELECT AdmissionType AS Description, AdmissionTypeID AS Code FROM Build_File_tbCoAdmissionType
WHERE AdmissionTypeID = :Criteria
   OR (AdmissionType LIKE :Criteria || '%'
       AND NOT EXISTS (SELECT 1 FROM Build_File_tbCoAdmissionType WHERE AdmissionTypeID = :Criteria))
ORDER BY AdmissionType;
