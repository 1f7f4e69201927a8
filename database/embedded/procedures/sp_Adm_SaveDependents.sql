-- parameters: HospNum text, Name text, BirthDate date
INSERT INTO Patient_Data_tbMasterDependent (SeqNum, Name, BirthDate) VALUES (:HospNum, :Name, :BirthDate);
