-- database: Build_File
-- parameters: ServiceID text, Everybody number
-- The doctors of a service, or all of them, the least consulted first.
SELECT FullName AS Doctor, DoctorID, coalesce(s1.Service, '') AS Specialization1,
       coalesce(s2.Service, '') AS Specialization2, coalesce(s3.Service, '') AS Specialization3
FROM Build_File_vwDoctor d
LEFT JOIN Build_File_tbCoService s1 ON s1.ServiceID = d.ServiceID1
LEFT JOIN Build_File_tbCoService s2 ON s2.ServiceID = d.ServiceID2
LEFT JOIN Build_File_tbCoService s3 ON s3.ServiceID = d.ServiceID3
WHERE :Everybody = 1
   OR (trim(:ServiceID) <> '' AND :ServiceID COLLATE OPD IN (d.ServiceID1, d.ServiceID2, d.ServiceID3))
ORDER BY Consultations, FullName, DoctorID;
