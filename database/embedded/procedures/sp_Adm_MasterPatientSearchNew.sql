-- parameters: Number text, Kind text
-- Kind 1 is the PHIC number, 2 the GSIS number, 3 the SSS number. The columns compare without blanks and hyphens, so that
-- nothing but these would be every patient without a number.
SELECT LastName, FirstName, MiddleName, HospNum, BirthDate, age_on(BirthDate, now()) AS Age,
       address_text(HouseStreet, Barangay) AS Address
FROM Patient_Data_tbMaster
WHERE :Number COLLATE OPD_NUMBER <> ''
  AND ((:Kind = '1' AND PHICNum = :Number) OR (:Kind = '2' AND GSISNum = :Number) OR (:Kind = '3' AND SSSNum = :Number))
ORDER BY LastName, FirstName, MiddleName;
