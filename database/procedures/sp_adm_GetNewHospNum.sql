-- parameters:
-- output: HospNum
UPDATE Patient_Data_tbCounter SET Last = Last + 1 WHERE Name = 'HospNum';
SELECT printf('%08d', Last) AS HospNum FROM Patient_Data_tbCounter WHERE Name = 'HospNum';
