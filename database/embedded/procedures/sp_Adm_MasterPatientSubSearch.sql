-- parameters: LastName text, Sex text, BirthDate date?
-- The wider second try: the sex may have been taken down wrongly, or the birth date, but not both.
SELECT LastName, FirstName, MiddleName, HospNum, BirthDate, age_on(BirthDate, now()) AS Age,
       address_text(HouseStreet, Barangay) AS Address
FROM Patient_Data_tbMaster
WHERE search_name(before_comma(:LastName)) <> ''
  AND SearchName >= search_name(before_comma(:LastName))
  AND SearchName < prefix_end(search_name(before_comma(:LastName)))
  AND (after_comma(:LastName) = '' OR fit_given_names(FirstName, MiddleName, after_comma(:LastName)))
  AND ((:BirthDate IS NOT NULL AND BirthDate = :BirthDate)
       OR (Sex = :Sex AND (:BirthDate IS NULL OR substr(BirthDate, 1, 4) = substr(:BirthDate, 1, 4))))
ORDER BY LastName, FirstName, MiddleName, BirthDate;
