-- parameters: HospNum text
SELECT * FROM Patient_Data_tbMasterMedicalHistory WHERE HospNum = :HospNum;
