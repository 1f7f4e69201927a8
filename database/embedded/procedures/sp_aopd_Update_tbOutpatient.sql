-- parameters: HospNum text, IDNum text, AccountNum text, Remarks text, ServiceID1 text, ServiceID2 text, ServiceID3 text, Unused1 text, Unused2 text, DoctorID1 text, DoctorID2 text, AccountType text, ConsultationType text, Weight text, Temperature text, BloodPressure text, VisitKind text, UserID text, AdmDate date, ChiefComplaints text, PulseRate text, CardNumber text, PatientType text, Purpose text, AccountRemarks text, Height text, PerUnit text, Unused3 text, SeniorCitizenID text, RespiratoryRate text, HMOApprovalNum text, Corvane bit, Hemo bit
-- An account that is empty or of a paying patient is the patient's own, which is the hospital number.
-- include: visit_columns.sqlpart
VALUES (:IDNum, :HospNum, :AdmDate, CASE WHEN :AccountType = 'P' OR trim(:AccountNum) = '' THEN :HospNum ELSE :AccountNum END,
  :AccountRemarks, :CardNumber, :HMOApprovalNum,
  CASE WHEN :AccountType = 'P' OR trim(:AccountNum) = '' THEN 'P'
       WHEN (SELECT Class FROM Build_File_tbCoCompany WHERE AccountNum = :AccountNum) IN ('P', 'H') THEN 'I' ELSE 'C' END,
  :PatientType, NULL, CASE WHEN :ConsultationType = 'W' THEN 'W' ELSE :Purpose END, :VisitKind, :ServiceID1, :ServiceID2,
  :ServiceID3, :DoctorID1, rtrim(:DoctorID2),
  (SELECT CauseofConsultationID1 FROM Patient_Data_tbOutPatientHistory WHERE IDNum = :IDNum),
  (SELECT CauseofConsultationID2 FROM Patient_Data_tbOutPatientHistory WHERE IDNum = :IDNum),
  (SELECT CauseofConsultationID3 FROM Patient_Data_tbOutPatientHistory WHERE IDNum = :IDNum),
  :ChiefComplaints, :Remarks, :Height, :Weight,
  :Temperature, :BloodPressure, :PulseRate, :RespiratoryRate, :PerUnit, :SeniorCitizenID, :Corvane, :Hemo, :UserID)
-- include: visit_update.sqlpart
-- include: audit_user.sqlpart
