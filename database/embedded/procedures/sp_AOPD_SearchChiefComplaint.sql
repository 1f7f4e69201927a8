-- parameters: Criteria text
SELECT ChiefComplaintID, ChiefComplaint, BodySystem FROM Build_File_tbCoChiefComplaint
WHERE contains(ChiefComplaintID, :Criteria) OR contains(ChiefComplaint, :Criteria)
ORDER BY ChiefComplaint, ChiefComplaintID;
