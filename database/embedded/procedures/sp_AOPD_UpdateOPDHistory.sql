-- parameters: HospNum text, IDNum text, ServiceID text, DoctorID text, DiagnosisID1 text, DiagnosisID2 text, DiagnosisID3 text, Findings text, Medications text, Remarks text, Cause1 text, Cause2 text, Cause3 text, ChiefComplaint text
-- The causes of consultation belong to the visit too, whose own list carries them at some hospitals only. They are
-- written here as well where the visit is known already, and read from here when its row is first written.
INSERT OR REPLACE INTO Patient_Data_tbOutPatientHistory (IDNum, HospNum, ServiceID, DoctorID, DiagnosisID1, DiagnosisID2,
  DiagnosisID3, Findings, Medications, Remarks, CauseofConsultationID1, CauseofConsultationID2, CauseofConsultationID3,
  ChiefComplaint)
VALUES (:IDNum, :HospNum, :ServiceID, :DoctorID, :DiagnosisID1, :DiagnosisID2, :DiagnosisID3, :Findings, :Medications,
  :Remarks, :Cause1, :Cause2, :Cause3, :ChiefComplaint);
UPDATE Patient_Data_tbOutPatient SET CauseofConsultationID1 = :Cause1, CauseofConsultationID2 = :Cause2,
  CauseofConsultationID3 = :Cause3
WHERE IDNum = :IDNum;
