-- database: Build_File
-- parameters: ServiceID text, Criteria text, Unused text, Mode text
-- Mode 7 is the doctor of exactly that code, who must work for the service where one is given. Mode 6 lists the doctors
-- whose code or name contains the text, those of the service first. Mode 5 lists who is on duty for the service today.
SELECT FullName AS Description, DoctorID AS Code
FROM (SELECT *, trim(:ServiceID) <> ''
                AND coalesce(:ServiceID COLLATE OPD IN (ServiceID1, ServiceID2, ServiceID3), 0) AS Serves
      FROM Build_File_vwDoctor)
WHERE CASE :Mode
      WHEN '7' THEN DoctorID = :Criteria AND (Serves OR trim(:ServiceID) = '')
      WHEN '6' THEN contains(DoctorID, :Criteria) OR contains(FullName, :Criteria)
      WHEN '5' THEN Serves AND instr(DutyDays, strftime('%w', now())) > 0
      END
ORDER BY Serves DESC, FullName, DoctorID;
