-- parameters:
-- output: IdNum
UPDATE Patient_Data_tbCounter SET Last = Last + 1 WHERE Name = 'OPDID';
SELECT printf('%010d', Last) AS IdNum FROM Patient_Data_tbCounter WHERE Name = 'OPDID';
