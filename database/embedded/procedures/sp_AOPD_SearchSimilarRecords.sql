-- parameters: LastName text, FirstName text, Age number
-- Last and first name come from the index over names; the age is asked of what they leave.
SELECT HospNum FROM Patient_Data_tbMaster
WHERE LastName = :LastName AND FirstName = :FirstName AND age_on(BirthDate, now()) = :Age;
