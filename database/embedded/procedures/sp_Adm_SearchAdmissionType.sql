-- parameters: Criteria text
-- An exact code gives one row; otherwise the codes and names that contain what was typed.
SELECT AdmissionType AS Description, AdmissionTypeID AS Code FROM Build_File_tbCoAdmissionType
WHERE CASE WHEN EXISTS (SELECT 1 FROM Build_File_tbCoAdmissionType WHERE AdmissionTypeID = :Criteria)
      THEN AdmissionTypeID = :Criteria
      ELSE contains(AdmissionTypeID, :Criteria) OR contains(AdmissionType, :Criteria) END
ORDER BY AdmissionType, AdmissionTypeID;
