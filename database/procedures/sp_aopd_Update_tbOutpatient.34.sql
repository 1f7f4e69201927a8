-- parameters: HospNum text, IDNum text, AccountNum text, Remarks text, ServiceID1 text, ServiceID2 text, ServiceID3 text, Unused1 text, Unused2 text, DoctorID1 text, DoctorID2 text, AccountType text, ConsultationType text, Weight text, Temperature text, BloodPressure text, VisitKind text, UserID text, AdmDate date, Cause1 text, Cause2 text, Cause3 text, PulseRate text, PayCode text, CardNumber text, PatientType text, Purpose text, AccountRemarks text, Height text, PerUnit text, Unused3 text, SeniorCitizenID text, RespiratoryRate text, HMOApprovalNum text
-- An account that is empty or of a paying patient is the patient's own, which is the hospital number.
INSERT INTO Patient_Data_tbOutPatient (IDNum, HospNum, AdmDate, AccountNum, AccountRemarks, CardNumber, HMOApprovalNum,
  HospPlan, PatientType, PayCode, ConsultationType, VisitKind, ServiceID1, ServiceID2, ServiceID3, DoctorID1, DoctorID2,
  CauseofConsultationID1, CauseofConsultationID2, CauseofConsultationID3, ChiefComplaints, Remarks, Height, Weight,
  Temperature, BloodPressure, PulseRate, RespiratoryRate, PerUnit, SeniorCitizenID, Corvane, isHemodialysis, UserID)
VALUES (:IDNum, :HospNum, :AdmDate, CASE WHEN :AccountType = 'P' OR trim(:AccountNum) = '' THEN :HospNum ELSE :AccountNum END,
  :AccountRemarks, :CardNumber, :HMOApprovalNum,
  CASE WHEN :AccountType = 'P' OR trim(:AccountNum) = '' THEN 'P'
       WHEN (SELECT Class FROM Build_File_tbCoCompany WHERE AccountNum = :AccountNum) IN ('P', 'H') THEN 'I' ELSE 'C' END,
  :PatientType, :PayCode, CASE WHEN :ConsultationType = 'W' THEN 'W' ELSE :Purpose END, :VisitKind, :ServiceID1, :ServiceID2,
  :ServiceID3, :DoctorID1, rtrim(:DoctorID2), :Cause1, :Cause2, :Cause3, NULL, :Remarks, :Height, :Weight,
  :Temperature, :BloodPressure, :PulseRate, :RespiratoryRate, :PerUnit, :SeniorCitizenID, 0, 0, :UserID)
ON CONFLICT (IDNum) DO UPDATE SET HospNum = excluded.HospNum, AdmDate = excluded.AdmDate,
  AccountNum = excluded.AccountNum, AccountRemarks = excluded.AccountRemarks, CardNumber = excluded.CardNumber,
  HMOApprovalNum = excluded.HMOApprovalNum, HospPlan = excluded.HospPlan, PatientType = excluded.PatientType,
  PayCode = coalesce(excluded.PayCode, PayCode), ConsultationType = excluded.ConsultationType,
  VisitKind = CASE WHEN excluded.VisitKind = '' THEN VisitKind ELSE excluded.VisitKind END,
  ServiceID1 = excluded.ServiceID1, ServiceID2 = excluded.ServiceID2, ServiceID3 = excluded.ServiceID3,
  DoctorID1 = excluded.DoctorID1, DoctorID2 = excluded.DoctorID2,
  CauseofConsultationID1 = excluded.CauseofConsultationID1, CauseofConsultationID2 = excluded.CauseofConsultationID2,
  CauseofConsultationID3 = excluded.CauseofConsultationID3,
  ChiefComplaints = coalesce(excluded.ChiefComplaints, ChiefComplaints), Remarks = excluded.Remarks,
  Height = excluded.Height, Weight = excluded.Weight, Temperature = excluded.Temperature,
  BloodPressure = excluded.BloodPressure, PulseRate = excluded.PulseRate, RespiratoryRate = excluded.RespiratoryRate,
  PerUnit = excluded.PerUnit, SeniorCitizenID = excluded.SeniorCitizenID, UserID = excluded.UserID;
