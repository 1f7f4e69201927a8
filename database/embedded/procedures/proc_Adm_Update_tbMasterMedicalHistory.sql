-- parameters: HospNum text, Hypertension number, Diabetes number, Hepatitis number, Allergies number, Tubercolosis number, PepticUlcer number, BloodDisease number, BronchialAsthma number, Others text
INSERT OR REPLACE INTO Patient_Data_tbMasterMedicalHistory
VALUES (:HospNum, :Hypertension, :Diabetes, :Hepatitis, :Allergies, :Tubercolosis, :PepticUlcer, :BloodDisease,
  :BronchialAsthma, :Others);
