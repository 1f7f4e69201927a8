-- parameters: Criteria text
SELECT ChiefComplaintID, ChiefComplaint, BodySystem FROM Build_File_tbCoChiefComplaint
WHERE ChiefComplaintID LIKE '%' || :Criteria || '%' OR ChiefComplaint LIKE '%' || :Criteria || '%'
ORDER BY ChiefComplaint, ChiefComplaintID;
