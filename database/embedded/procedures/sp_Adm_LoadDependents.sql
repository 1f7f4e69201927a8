-- parameters: HospNum text
SELECT Name, BirthDate FROM Patient_Data_tbMasterDependent WHERE SeqNum = :HospNum ORDER BY BirthDate, Name;
