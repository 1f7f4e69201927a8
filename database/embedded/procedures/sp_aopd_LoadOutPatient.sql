-- parameters: IDNum text
SELECT v.*, m.LastName, m.FirstName, m.MiddleName, m.BloodType, c.GuarantorName, c.GuarantorAddress, c.GuarantorTelnum,
       c.GuarantorEmployer, c.GuarantorEmployerAddress, c.InformantName, c.InformantAddress, c.InformantRelation,
       c.InformantTelNum, c.SeniorCitizenIDNo, h.Findings, h.Medications, h.DiagnosisID1, h.DiagnosisID2,
       h.DiagnosisID3, company.Company,
       r1.OtherRevenue AS CauseofConsultation1, r2.OtherRevenue AS CauseofConsultation2,
       r3.OtherRevenue AS CauseofConsultation3
FROM Patient_Data_tbOutPatient v
JOIN Patient_Data_tbMaster m ON m.HospNum = v.HospNum
LEFT JOIN Patient_Data_tbOutPatientContact c ON c.IDNum = v.IDNum
LEFT JOIN Patient_Data_tbOutPatientHistory h ON h.IDNum = v.IDNum
LEFT JOIN Build_File_tbCoCompany company ON company.AccountNum = v.AccountNum
LEFT JOIN Build_File_tbCoOtherRevenue r1 ON r1.RevenueID = v.CauseofConsultationID1
LEFT JOIN Build_File_tbCoOtherRevenue r2 ON r2.RevenueID = v.CauseofConsultationID2
LEFT JOIN Build_File_tbCoOtherRevenue r3 ON r3.RevenueID = v.CauseofConsultationID3
WHERE v.IDNum = :IDNum;
