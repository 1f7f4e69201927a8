-- parameters: AllergyID text
SELECT AllergyID, Allergy FROM Build_File_tbCoAllergy WHERE AllergyID = :AllergyID;
