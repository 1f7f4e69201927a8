-- parameters: HospNum text
SELECT * FROM Patient_Data_tbMaster2 WHERE HospNum = :HospNum;
