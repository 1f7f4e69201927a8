-- parameters: HospNum text
-- A patient keeps the file number once it is given.
UPDATE Patient_Data_tbMaster SET FileNum = 1 + coalesce((
  SELECT max(FileNum) FROM Patient_Data_tbMaster WHERE FileNum IS NOT NULL), 0)
WHERE HospNum = :HospNum AND FileNum IS NULL;
