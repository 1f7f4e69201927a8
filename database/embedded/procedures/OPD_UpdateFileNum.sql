-- parameters: HospNum text
-- A patient keeps the file number once it is given; a new one is free.
UPDATE Patient_Data_tbCounter SET Last = (
  WITH RECURSIVE candidate (Number) AS (
    SELECT Last + 1
    UNION ALL
    SELECT Number + 1 FROM candidate WHERE EXISTS (SELECT 1 FROM Patient_Data_tbMaster WHERE FileNum = Number))
  SELECT max(Number) FROM candidate)
WHERE Name = 'FileNum' AND EXISTS (SELECT 1 FROM Patient_Data_tbMaster WHERE HospNum = :HospNum AND FileNum IS NULL);
UPDATE Patient_Data_tbMaster SET FileNum = (SELECT Last FROM Patient_Data_tbCounter WHERE Name = 'FileNum')
WHERE HospNum = :HospNum AND FileNum IS NULL;
