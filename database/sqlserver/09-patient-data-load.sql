-- What the registration form loads, and what it checks before it goes on.
USE Patient_Data;
GO
-- A desk that asks within a transaction writes behind the answer. So patient and visit, or the patient alone, are held
-- until it ends, in the order in which every save writes them: what was answered stays true, and a save or a revocation
-- of another desk waits. An UPDATE that changes nothing holds a row on every server; Babelfish takes hints for that and
-- does nothing.
DROP PROCEDURE IF EXISTS dbo.sp_aopd_LoadOutPatient;
GO
CREATE PROCEDURE dbo.sp_aopd_LoadOutPatient
  @IDNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  IF @@TRANCOUNT > 0
  BEGIN
    UPDATE dbo.tbMaster SET Sex = Sex WHERE HospNum IN (SELECT HospNum FROM dbo.tbOutPatient WHERE IDNum = @IDNum);
    UPDATE dbo.tbOutPatient SET OPDStatus = OPDStatus WHERE IDNum = @IDNum;
  END
  SELECT v.*, m.LastName, m.FirstName, m.MiddleName, m.BloodType, c.GuarantorName, c.GuarantorAddress,
         c.GuarantorTelnum, c.GuarantorEmployer, c.GuarantorEmployerAddress, c.InformantName, c.InformantAddress,
         c.InformantRelation, c.InformantTelNum, c.SeniorCitizenIDNo, h.Findings, h.Medications, h.DiagnosisID1,
         h.DiagnosisID2, h.DiagnosisID3, company.Company, r1.OtherRevenue AS CauseofConsultation1,
         r2.OtherRevenue AS CauseofConsultation2, r3.OtherRevenue AS CauseofConsultation3
  FROM dbo.tbOutPatient AS v
  INNER JOIN dbo.tbMaster AS m ON m.HospNum = v.HospNum
  LEFT JOIN dbo.tbOutPatientContact AS c ON c.IDNum = v.IDNum
  LEFT JOIN dbo.tbOutPatientHistory AS h ON h.IDNum = v.IDNum
  LEFT JOIN Build_File.dbo.tbCoCompany AS company ON company.AccountNum = v.AccountNum
  LEFT JOIN Build_File.dbo.tbCoOtherRevenue AS r1 ON r1.RevenueID = v.CauseofConsultationID1
  LEFT JOIN Build_File.dbo.tbCoOtherRevenue AS r2 ON r2.RevenueID = v.CauseofConsultationID2
  LEFT JOIN Build_File.dbo.tbCoOtherRevenue AS r3 ON r3.RevenueID = v.CauseofConsultationID3
  WHERE v.IDNum = @IDNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_aopd_Load_TbMaster;
GO
CREATE PROCEDURE dbo.sp_aopd_Load_TbMaster
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  IF @@TRANCOUNT > 0
    UPDATE dbo.tbMaster SET Sex = Sex WHERE HospNum = @HospNum;
  SELECT m.HospNum, m.LastName, m.FirstName, m.MiddleName, m.Title, m.HouseStreet, m.Barangay, m.ZipCode, m.Sex,
         m.BirthDate, m.telnum, m.CivilStatus, m.BloodType, m.Occupation, m.Employer, m.EmployerAddress,
         m.EmployerTelNum, e.BirthPlace, e.NationalityID, COALESCE(e.ReligionID, m.ReligionID) AS ReligionID,
         n.Nationality, r.Religion, a.Town + N', ' + a.Province AS Province
  FROM dbo.tbMaster AS m
  LEFT JOIN dbo.tbMaster2 AS e ON e.HospNum = m.HospNum
  LEFT JOIN Build_File.dbo.tbCoNationality AS n ON n.NationalityID = e.NationalityID
  LEFT JOIN Build_File.dbo.tbCoReligion AS r ON r.ReligionID = COALESCE(e.ReligionID, m.ReligionID)
  LEFT JOIN Build_File.dbo.tbCoAddress AS a ON a.ZipCode = m.ZipCode
  WHERE m.HospNum = @HospNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_adm_LoadPatient;
GO
CREATE PROCEDURE dbo.sp_adm_LoadPatient
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT * FROM dbo.tbMaster2 WHERE HospNum = @HospNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.proc_Adm_Search_tbMasterMedicalHistory;
GO
CREATE PROCEDURE dbo.proc_Adm_Search_tbMasterMedicalHistory
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT * FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_Aopd_LoadAllergies;
GO
CREATE PROCEDURE dbo.sp_Aopd_LoadAllergies
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT AllergyID1, AllergyID2, AllergyID3, AllergyID4, AllergyID5
  FROM dbo.tbMasterAllergies WHERE HospNum = @HospNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_Adm_LoadDependents;
GO
CREATE PROCEDURE dbo.sp_Adm_LoadDependents
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT Name, BirthDate FROM dbo.tbMasterDependent WHERE SeqNum = @HospNum ORDER BY BirthDate, Name;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_LoadOutProfile;
GO
CREATE PROCEDURE dbo.sp_AOPD_LoadOutProfile
  @IDNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT LMP FROM dbo.tbOutProfile WHERE IDNum = @IDNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_ComputeAge;
GO
CREATE PROCEDURE dbo.sp_AOPD_ComputeAge
  @BirthDate nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT dbo.OPD_Age(dbo.OPD_Moment(@BirthDate, 0)) AS Age;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_Adm_LoadAllergy;
GO
CREATE PROCEDURE dbo.sp_Adm_LoadAllergy
  @AllergyID nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT AllergyID, Allergy FROM Build_File.dbo.tbCoAllergy WHERE AllergyID = @AllergyID;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_Adm_LoadDoctor;
GO
CREATE PROCEDURE dbo.sp_Adm_LoadDoctor
  @DoctorID nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT DoctorID, LastName, FirstName, MiddleName FROM Build_File.dbo.tbCoDoctor WHERE DoctorID = @DoctorID;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_Adm_LoadService;
GO
CREATE PROCEDURE dbo.sp_Adm_LoadService
  @ServiceID nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT ServiceID, Service FROM Build_File.dbo.tbCoService WHERE ServiceID = @ServiceID;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_SearchChiefComplaintID;
GO
CREATE PROCEDURE dbo.sp_AOPD_SearchChiefComplaintID
  @ChiefComplaintID nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT ChiefComplaintID, ChiefComplaint
  FROM Build_File.dbo.tbCoChiefComplaint WHERE ChiefComplaintID = @ChiefComplaintID;
END
GO
DROP PROCEDURE IF EXISTS dbo.SP_AOPD_CheckCompanyAccount;
GO
CREATE PROCEDURE dbo.SP_AOPD_CheckCompanyAccount
  @AccountNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT AccountNum FROM Build_File.dbo.tbCoCompany WHERE AccountNum = @AccountNum AND Class IN (N'P', N'H');
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_CheckPatientsMasterAccount;
GO
CREATE PROCEDURE dbo.sp_AOPD_CheckPatientsMasterAccount
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT HospNum FROM dbo.tbMasterAccount WHERE HospNum = @HospNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_CheckIfAdmitted;
GO
CREATE PROCEDURE dbo.sp_AOPD_CheckIfAdmitted
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT IdNum FROM dbo.tbPatient WHERE HospNum = @HospNum AND DcrDate IS NULL;
END
GO
-- An OPD visit of that day that stands, or an in-patient admission of that day. Who lies in the hospital since
-- earlier days is for sp_AOPD_CheckIfAdmitted to say.
DROP PROCEDURE IF EXISTS dbo.sp_aopd_Check_if_admitted_today;
GO
CREATE PROCEDURE dbo.sp_aopd_Check_if_admitted_today
  @HospNum nvarchar(4000),
  @Today nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Day datetime = CAST(dbo.OPD_Moment(@Today, 0) AS date);
  SELECT IDNum AS IdNum FROM dbo.tbOutPatient
  WHERE HospNum = @HospNum AND AdmDate >= @Day AND AdmDate < DATEADD(day, 1, @Day) AND OPDStatus <> N'R'
  UNION ALL
  SELECT IdNum FROM dbo.tbPatient
  WHERE HospNum = @HospNum AND AdmDate >= @Day AND AdmDate < DATEADD(day, 1, @Day) AND DcrDate IS NULL;
END
GO
