-- parameters: HospNum text
SELECT AllergyID1, AllergyID2, AllergyID3, AllergyID4, AllergyID5
FROM Patient_Data_tbMasterAllergies WHERE HospNum = :HospNum;
