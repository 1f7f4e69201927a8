-- parameters: Criteria text
-- order: ChiefComplaint, ChiefComplaintID
SELECT ChiefComplaintID, ChiefComplaint, BodySystem FROM Build_File_tbCoChiefComplaint
WHERE contains(ChiefComplaintID, ChiefComplaint, :Criteria);
