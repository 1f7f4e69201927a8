-- parameters: HospNum text, Today date
-- An OPD visit of that day that stands, or an in-patient admission of that day. Who lies in the hospital since earlier
-- days is for sp_AOPD_CheckIfAdmitted to say.
SELECT IDNum AS IdNum FROM Patient_Data_tbOutPatient
WHERE HospNum = :HospNum AND substr(AdmDate, 1, 10) = :Today AND OPDStatus <> 'R'
UNION ALL
SELECT IdNum FROM Patient_Data_tbPatient
WHERE HospNum = :HospNum AND substr(AdmDate, 1, 10) = :Today AND DcrDate IS NULL;
