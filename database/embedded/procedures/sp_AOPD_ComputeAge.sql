-- parameters: BirthDate date
SELECT age_on(:BirthDate, now()) AS Age;
