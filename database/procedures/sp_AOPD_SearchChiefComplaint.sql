-- parameters: Criteria text
SELECT ChiefComplaintID, ChiefComplaint FROM Build_File_tbCoChiefComplaint
WHERE ChiefComplaint LIKE '%' || :Criteria || '%' ORDER BY ChiefComplaint;
