-- parameters: HospNum text, AllergyID1 text, AllergyID2 text, AllergyID3 text, AllergyID4 text, AllergyID5 text
INSERT OR IGNORE INTO Patient_Data_tbMasterAllergies (HospNum) VALUES (:HospNum);
WITH old AS (SELECT * FROM Patient_Data_tbMasterAllergies WHERE HospNum = :HospNum)
-- include: audit_head.sqlpart
  SELECT 'AllergyID1' AS What, AllergyID1 AS OldValue, :AllergyID1 AS NewValue FROM old
  UNION ALL SELECT 'AllergyID2', AllergyID2, :AllergyID2 FROM old
  UNION ALL SELECT 'AllergyID3', AllergyID3, :AllergyID3 FROM old
  UNION ALL SELECT 'AllergyID4', AllergyID4, :AllergyID4 FROM old
  UNION ALL SELECT 'AllergyID5', AllergyID5, :AllergyID5 FROM old
-- include: audit_tail.sqlpart
  AND coalesce(this.IsNew, 0) = 0;
INSERT OR REPLACE INTO Patient_Data_tbMasterAllergies
VALUES (:HospNum, :AllergyID1, :AllergyID2, :AllergyID3, :AllergyID4, :AllergyID5);
