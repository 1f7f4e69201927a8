-- parameters:
-- output: IdNum
-- Goes on until the number is free: a file that was restored, or another program, may have gone ahead of the counter.
-- Visits bear it with a "B", and so do contacts and history, which may be there without a visit.
UPDATE Patient_Data_tbCounter SET Last = (
  WITH RECURSIVE candidate (Number) AS (
    SELECT max(Last, 0) + 1
    UNION ALL
    SELECT Number + 1 FROM candidate
    WHERE EXISTS (SELECT 1 FROM Patient_Data_tbOutPatient WHERE IDNum = printf('%010dB', Number))
       OR EXISTS (SELECT 1 FROM Patient_Data_tbOutPatientContact WHERE IDNum = printf('%010dB', Number))
       OR EXISTS (SELECT 1 FROM Patient_Data_tbOutPatientHistory WHERE IDNum = printf('%010dB', Number)))
  SELECT max(Number) FROM candidate)
WHERE Name = 'OPDID';
INSERT OR IGNORE INTO temp.DrawnNumber SELECT printf('%010dB', Last) FROM Patient_Data_tbCounter WHERE Name = 'OPDID';
SELECT printf('%010d', Last) AS IdNum FROM Patient_Data_tbCounter WHERE Name = 'OPDID';
