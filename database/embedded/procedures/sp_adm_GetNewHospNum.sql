-- parameters:
-- output: HospNum
-- Goes on until the number is free: a file that was restored, or another program, may have gone ahead of the counter.
UPDATE Patient_Data_tbCounter SET Last = (
  WITH RECURSIVE candidate (Number) AS (
    SELECT max(Last, 0) + 1
    UNION ALL
    SELECT Number + 1 FROM candidate
    WHERE EXISTS (SELECT 1 FROM Patient_Data_tbMaster WHERE HospNum = printf('%08d', Number)))
  SELECT max(Number) FROM candidate)
WHERE Name = 'HospNum';
INSERT OR IGNORE INTO temp.DrawnNumber SELECT printf('%08d', Last) FROM Patient_Data_tbCounter WHERE Name = 'HospNum';
SELECT printf('%08d', Last) AS HospNum FROM Patient_Data_tbCounter WHERE Name = 'HospNum';
