-- parameters: HospNum text, AllergyID1 text, AllergyID2 text, AllergyID3 text, AllergyID4 text, AllergyID5 text
INSERT OR REPLACE INTO Patient_Data_tbMasterAllergies
VALUES (:HospNum, :AllergyID1, :AllergyID2, :AllergyID3, :AllergyID4, :AllergyID5);
