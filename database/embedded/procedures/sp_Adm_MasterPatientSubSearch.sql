-- parameters: LastName text, Sex text, BirthDate date?
-- order: LastName, FirstName, MiddleName, BirthDate
-- The wider second try: the sex may have been taken down wrongly, or the birth date, but not both.
-- include: searched_names.sqlpart
SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, age_on(m.BirthDate, (SELECT now())) AS Age,
       address_text(m.HouseStreet, m.Barangay) AS Address
FROM Patient_Data_tbMaster m INDEXED BY Patient_Data_tbMaster_BirthDate
WHERE :BirthDate IS NOT NULL AND m.BirthDate = :BirthDate
  AND search_name(before_comma(:LastName)) <> ''
  AND m.SearchName >= search_name(before_comma(:LastName))
  AND m.SearchName < prefix_end(search_name(before_comma(:LastName)))
  AND (after_comma(:LastName) = '' OR fit_given_names(m.FirstName, m.MiddleName, after_comma(:LastName)))
UNION ALL
SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, age_on(m.BirthDate, (SELECT now())),
       address_text(m.HouseStreet, m.Barangay)
FROM Patient_Data_tbMaster m INDEXED BY Patient_Data_tbMaster_Search
WHERE m.SearchName IN (SELECT SearchName FROM searched) AND :BirthDate IS NOT NULL AND m.Sex = :Sex
  AND m.BirthDate >= substr(:BirthDate, 1, 4) AND m.BirthDate < prefix_end(substr(:BirthDate, 1, 4))
  AND m.BirthDate <> :BirthDate
  AND (after_comma(:LastName) = '' OR fit_given_names(m.FirstName, m.MiddleName, after_comma(:LastName)))
UNION ALL
SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, age_on(m.BirthDate, (SELECT now())),
       address_text(m.HouseStreet, m.Barangay)
FROM Patient_Data_tbMaster m INDEXED BY Patient_Data_tbMaster_Search
WHERE m.SearchName IN (SELECT SearchName FROM searched) AND :BirthDate IS NULL AND m.Sex = :Sex
  AND (after_comma(:LastName) = '' OR fit_given_names(m.FirstName, m.MiddleName, after_comma(:LastName)));
