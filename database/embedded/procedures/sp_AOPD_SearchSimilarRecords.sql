-- parameters: LastName text, FirstName text, Age number
-- The age is a span of birth dates, so that the index answers.
SELECT HospNum FROM Patient_Data_tbMaster
WHERE LastName = :LastName AND FirstName = :FirstName
  AND BirthDate >= born_from(:Age, (SELECT now())) AND BirthDate <= born_until(:Age, (SELECT now()));
