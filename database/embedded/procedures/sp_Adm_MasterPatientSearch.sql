-- parameters: LastName text, FirstName text, MiddleName text, Sex text, HospNum text, BirthDate date?, First number, Second number
-- order: LastName, FirstName, MiddleName, BirthDate
-- A last name matches when it begins with what was typed, however it is written; "LAST, FIRST MIDDLE" narrows both.
-- Each part has an index of its own: a day has few births however many patients there are, a common surname has many
-- bearers, but few of one given name.
-- include: searched_names.sqlpart
SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, age_on(m.BirthDate, (SELECT now())) AS Age,
       address_text(m.HouseStreet, m.Barangay) AS Address
FROM Patient_Data_tbMaster m INDEXED BY Patient_Data_tbMaster_BirthDate
WHERE :BirthDate IS NOT NULL AND m.BirthDate = :BirthDate
  AND search_name(before_comma(:LastName)) <> ''
  AND m.SearchName >= search_name(before_comma(:LastName))
  AND m.SearchName < prefix_end(search_name(before_comma(:LastName)))
  AND (:Sex = '' OR m.Sex = :Sex)
  AND (after_comma(:LastName) = '' OR fit_given_names(m.FirstName, m.MiddleName, after_comma(:LastName)))
  AND (:FirstName = '' OR begins_with(m.FirstName, :FirstName))
  AND (:MiddleName = '' OR begins_with(m.MiddleName, :MiddleName))
  AND (:HospNum = '' OR m.HospNum = :HospNum)
  AND :First = 0 AND :Second = 0
UNION ALL
SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, age_on(m.BirthDate, (SELECT now())),
       address_text(m.HouseStreet, m.Barangay)
FROM Patient_Data_tbMaster m INDEXED BY Patient_Data_tbMaster_Search
WHERE m.SearchName IN (SELECT SearchName FROM searched) AND :BirthDate IS NULL AND after_comma(:LastName) = ''
  AND (:Sex = '' OR m.Sex = :Sex)
  AND (:FirstName = '' OR begins_with(m.FirstName, :FirstName))
  AND (:MiddleName = '' OR begins_with(m.MiddleName, :MiddleName))
  AND (:HospNum = '' OR m.HospNum = :HospNum)
  AND :First = 0 AND :Second = 0
UNION ALL
SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, age_on(m.BirthDate, (SELECT now())),
       address_text(m.HouseStreet, m.Barangay)
FROM Patient_Data_tbMaster m INDEXED BY Patient_Data_tbMaster_First
WHERE m.SearchName IN (SELECT SearchName FROM searched) AND :BirthDate IS NULL AND after_comma(:LastName) <> ''
  AND m.SearchFirst >= search_name(first_word(after_comma(:LastName)))
  AND m.SearchFirst < prefix_end(search_name(first_word(after_comma(:LastName))))
  AND fit_given_names(m.FirstName, m.MiddleName, after_comma(:LastName))
  AND (:Sex = '' OR m.Sex = :Sex)
  AND (:FirstName = '' OR begins_with(m.FirstName, :FirstName))
  AND (:MiddleName = '' OR begins_with(m.MiddleName, :MiddleName))
  AND (:HospNum = '' OR m.HospNum = :HospNum)
  AND :First = 0 AND :Second = 0;
