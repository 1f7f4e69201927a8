-- parameters: HospNum text, Hypertension number, Diabetes number, Hepatitis number, Allergies number, Tubercolosis number, PepticUlcer number, BloodDisease number, BronchialAsthma number, Others text
INSERT OR IGNORE INTO Patient_Data_tbMasterMedicalHistory (HospNum) VALUES (:HospNum);
WITH old AS (SELECT * FROM Patient_Data_tbMasterMedicalHistory WHERE HospNum = :HospNum)
-- include: audit_head.sqlpart
  SELECT 'Hypertension' AS What, coalesce(Hypertension, 0) AS OldValue, CAST(:Hypertension AS INTEGER) AS NewValue FROM old
  UNION ALL SELECT 'Diabetes', coalesce(Diabetes, 0), CAST(:Diabetes AS INTEGER) FROM old
  UNION ALL SELECT 'Hepatitis', coalesce(Hepatitis, 0), CAST(:Hepatitis AS INTEGER) FROM old
  UNION ALL SELECT 'Allergies', coalesce(Allergies, 0), CAST(:Allergies AS INTEGER) FROM old
  UNION ALL SELECT 'Tubercolosis', coalesce(Tubercolosis, 0), CAST(:Tubercolosis AS INTEGER) FROM old
  UNION ALL SELECT 'PepticUlcer', coalesce(PepticUlcer, 0), CAST(:PepticUlcer AS INTEGER) FROM old
  UNION ALL SELECT 'BloodDisease', coalesce(BloodDisease, 0), CAST(:BloodDisease AS INTEGER) FROM old
  UNION ALL SELECT 'BronchialAsthma', coalesce(BronchialAsthma, 0), CAST(:BronchialAsthma AS INTEGER) FROM old
  UNION ALL SELECT 'Others', Others, :Others FROM old
-- include: audit_tail.sqlpart
  AND coalesce(this.IsNew, 0) = 0;
INSERT OR REPLACE INTO Patient_Data_tbMasterMedicalHistory
VALUES (:HospNum, :Hypertension, :Diabetes, :Hepatitis, :Allergies, :Tubercolosis, :PepticUlcer, :BloodDisease,
  :BronchialAsthma, :Others);
