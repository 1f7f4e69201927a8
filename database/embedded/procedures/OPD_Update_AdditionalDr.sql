-- parameters: IDNum text, DoctorID text, Position text
-- Positions 1 to 3 are the attending doctors 3 to 5.
UPDATE Patient_Data_tbOutPatient SET
  DoctorID3 = CASE :Position WHEN '1' THEN :DoctorID ELSE DoctorID3 END,
  DoctorID4 = CASE :Position WHEN '2' THEN :DoctorID ELSE DoctorID4 END,
  DoctorID5 = CASE :Position WHEN '3' THEN :DoctorID ELSE DoctorID5 END
WHERE IDNum = :IDNum;
