-- parameters: LastName text, FirstName text, MiddleName text, Sex text, HospNum text, BirthDate date?, First number, Second number
-- A last name matches when it begins with what was typed, however it is written; "LAST, FIRST" narrows the first name.
SELECT LastName, FirstName, MiddleName, HospNum, BirthDate, age_on(BirthDate, now()) AS Age,
       address_text(HouseStreet, Barangay) AS Address
FROM Patient_Data_tbMaster
WHERE search_name(before_comma(:LastName)) <> ''
  AND SearchName >= search_name(before_comma(:LastName))
  AND SearchName < prefix_end(search_name(before_comma(:LastName)))
  AND search_name(FirstName) LIKE search_name(after_comma(:LastName)) || '%'
  AND (:FirstName = '' OR FirstName LIKE :FirstName || '%')
  AND (:MiddleName = '' OR MiddleName LIKE :MiddleName || '%')
  AND (:Sex = '' OR Sex = :Sex)
  AND (:HospNum = '' OR HospNum = :HospNum)
  AND (:BirthDate IS NULL OR BirthDate = :BirthDate)
  AND :First = 0 AND :Second = 0
ORDER BY LastName, FirstName, MiddleName, BirthDate;
