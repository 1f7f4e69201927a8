-- parameters: LastName text, FirstName text, MiddleName text, Sex text, HospNum text, BirthDate date?, First number, Second number
-- A last name matches when it begins with what was typed, however it is written; "LAST, FIRST MIDDLE" narrows both.
-- One half searches with a birth date and one without, because each has an index of its own: a day has few births
-- however many patients there are, and a common surname has many bearers.
SELECT LastName, FirstName, MiddleName, HospNum, BirthDate, age_on(BirthDate, now()) AS Age,
       address_text(HouseStreet, Barangay) AS Address
FROM Patient_Data_tbMaster INDEXED BY Patient_Data_tbMaster_BirthDate
WHERE :BirthDate IS NOT NULL AND BirthDate = :BirthDate
  AND search_name(before_comma(:LastName)) <> ''
  AND SearchName >= search_name(before_comma(:LastName))
  AND SearchName < prefix_end(search_name(before_comma(:LastName)))
  AND (after_comma(:LastName) = '' OR fit_given_names(FirstName, MiddleName, after_comma(:LastName)))
  AND (:FirstName = '' OR begins_with(FirstName, :FirstName))
  AND (:MiddleName = '' OR begins_with(MiddleName, :MiddleName))
  AND (:Sex = '' OR Sex = :Sex)
  AND (:HospNum = '' OR HospNum = :HospNum)
  AND :First = 0 AND :Second = 0
UNION ALL
SELECT LastName, FirstName, MiddleName, HospNum, BirthDate, age_on(BirthDate, now()),
       address_text(HouseStreet, Barangay)
FROM Patient_Data_tbMaster
WHERE :BirthDate IS NULL
  AND search_name(before_comma(:LastName)) <> ''
  AND SearchName >= search_name(before_comma(:LastName))
  AND SearchName < prefix_end(search_name(before_comma(:LastName)))
  AND (:Sex = '' OR Sex = :Sex)
  AND (after_comma(:LastName) = '' OR fit_given_names(FirstName, MiddleName, after_comma(:LastName)))
  AND (:FirstName = '' OR begins_with(FirstName, :FirstName))
  AND (:MiddleName = '' OR begins_with(MiddleName, :MiddleName))
  AND (:HospNum = '' OR HospNum = :HospNum)
  AND :First = 0 AND :Second = 0
ORDER BY LastName, FirstName, MiddleName, BirthDate;
