-- parameters: HospNum text
-- A patient keeps the file number once it is given.
UPDATE Patient_Data_tbCounter SET Last = Last + 1
WHERE Name = 'FileNum' AND EXISTS (SELECT 1 FROM Patient_Data_tbMaster WHERE HospNum = :HospNum AND FileNum IS NULL);
UPDATE Patient_Data_tbMaster SET FileNum = (SELECT Last FROM Patient_Data_tbCounter WHERE Name = 'FileNum')
WHERE HospNum = :HospNum AND FileNum IS NULL;
