-- parameters: HospNum text
SELECT IdNum FROM Patient_Data_tbPatient WHERE HospNum = :HospNum AND DcrDate IS NULL;
