-- parameters: ChiefComplaintID text
SELECT ChiefComplaintID, ChiefComplaint FROM Build_File_tbCoChiefComplaint WHERE ChiefComplaintID = :ChiefComplaintID;
