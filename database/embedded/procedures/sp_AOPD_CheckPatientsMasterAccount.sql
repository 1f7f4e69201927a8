-- parameters: HospNum text
SELECT HospNum FROM Patient_Data_tbMasterAccount WHERE HospNum = :HospNum;
