-- What a desk may do. It runs the procedures, which reach their tables by themselves, and has rights of its own only
-- where its statements name a table, where a procedure reaches into another database, and on Babelfish.
USE LABORATORY;
GO
IF NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd_desk') CREATE ROLE opd_desk;
GO
USE billing;
GO
IF NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd_desk') CREATE ROLE opd_desk;
GO
GRANT EXECUTE ON dbo.sp_OPD_ComputeHospitalBill TO opd_desk;
GO
USE Build_File;
GO
IF NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd_desk') CREATE ROLE opd_desk;
GO
GRANT SELECT ON dbo.tbCoAddress TO opd_desk;
GRANT SELECT ON dbo.tbCoNationality TO opd_desk;
GRANT SELECT ON dbo.tbCoReligion TO opd_desk;
GRANT SELECT ON dbo.tbCoBarangay TO opd_desk;
GRANT SELECT ON dbo.tbCoService TO opd_desk;
GRANT SELECT ON dbo.tbCoAllergy TO opd_desk;
GRANT SELECT ON dbo.tbCoDoctor TO opd_desk;
GRANT SELECT ON dbo.tbCoCompany TO opd_desk;
GRANT SELECT ON dbo.tbCoPayCode TO opd_desk;
GRANT SELECT ON dbo.tbCoAdmissionType TO opd_desk;
GRANT SELECT ON dbo.tbCoChiefComplaint TO opd_desk;
GRANT SELECT ON dbo.tbCoOtherRevenue TO opd_desk;
GO
-- sp_Adm_Update_tbAdmDoctorConsultation counts here, from Patient_Data.
GRANT UPDATE (Consultations) ON dbo.tbCoDoctor TO opd_desk;
GO
GRANT EXECUTE ON dbo.global_SearchBarangay TO opd_desk;
GRANT EXECUTE ON dbo.global_SearchDoctor_By_Specialization TO opd_desk;
GRANT EXECUTE ON dbo.sp_Bui_Search_Doctor TO opd_desk;
GO
USE Patient_Data;
GO
IF NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd_desk') CREATE ROLE opd_desk;
GO
GRANT SELECT ON dbo.tbHospitalInfo TO opd_desk;
GRANT SELECT ON dbo.tbDeskVersion TO opd_desk;
GRANT SELECT ON dbo.tbMaster TO opd_desk;
GRANT SELECT ON dbo.tbOpdHMOLOA TO opd_desk;
GRANT SELECT ON dbo.tbOutPatient TO opd_desk;
GRANT UPDATE ON dbo.tbOutPatient TO opd_desk;
GRANT SELECT ON dbo.tbMasterDependent TO opd_desk;
GRANT DELETE ON dbo.tbMasterDependent TO opd_desk;
GO
GRANT EXECUTE ON dbo.OPD_Update_AdditionalDr TO opd_desk;
GRANT EXECUTE ON dbo.OPD_updateConsultationDate TO opd_desk;
GRANT EXECUTE ON dbo.OPD_UpdateFileNum TO opd_desk;
GRANT EXECUTE ON dbo.proc_Adm_Search_tbMasterMedicalHistory TO opd_desk;
GRANT EXECUTE ON dbo.proc_Adm_Update_tbMasterMedicalHistory TO opd_desk;
GRANT EXECUTE ON dbo.proc_Bar_Search_Patient TO opd_desk;
GRANT EXECUTE ON dbo.sp_adm_GetNewHospNum TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_LoadAllergy TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_LoadDependents TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_LoadDoctor TO opd_desk;
GRANT EXECUTE ON dbo.sp_adm_LoadPatient TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_LoadService TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_MasterPatientSearch TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_MasterPatientSearchNew TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_MasterPatientSubSearch TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_SaveDependents TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_SearchAdmissionType TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_SearchBarangay TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_Update_tbAdmDoctorConsultation TO opd_desk;
GRANT EXECUTE ON dbo.sp_Adm_UpdateMaster2 TO opd_desk;
GRANT EXECUTE ON dbo.sp_aopd_Check_if_admitted_today TO opd_desk;
GRANT EXECUTE ON dbo.SP_AOPD_CheckCompanyAccount TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_CheckIfAdmitted TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_CheckPatientsMasterAccount TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_ComputeAge TO opd_desk;
GRANT EXECUTE ON dbo.sp_aopd_GetNewOPDID TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_InsertUpdateOutProfile TO opd_desk;
GRANT EXECUTE ON dbo.sp_aopd_Load_TbMaster TO opd_desk;
GRANT EXECUTE ON dbo.sp_Aopd_LoadAllergies TO opd_desk;
GRANT EXECUTE ON dbo.sp_aopd_LoadOutPatient TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_LoadOutProfile TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_Save_TbMasterAllergies TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_SaveHMOLOA TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_SaveOPD_UserLog TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_SaveOPDRevokedLog TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_SearchChiefComplaint TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_SearchChiefComplaintID TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_SearchSimilarRecords TO opd_desk;
GRANT EXECUTE ON dbo.sp_aopd_Update_TbMaster TO opd_desk;
GRANT EXECUTE ON dbo.sp_aopd_Update_tbOutpatient TO opd_desk;
GRANT EXECUTE ON dbo.sp_AOPD_UpdateOPDHistory TO opd_desk;
GO
-- On Babelfish a procedure reaches tables with the rights of whoever runs it, and so do its functions and the trigger.
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN
  GRANT SELECT ON dbo.tbCounter TO opd_desk;
  GRANT UPDATE ON dbo.tbCounter TO opd_desk;
  GRANT SELECT ON dbo.tbDrawnNumber TO opd_desk;
  GRANT INSERT ON dbo.tbDrawnNumber TO opd_desk;
  GRANT DELETE ON dbo.tbDrawnNumber TO opd_desk;
  GRANT INSERT ON dbo.tbMaster TO opd_desk;
  GRANT UPDATE ON dbo.tbMaster TO opd_desk;
  GRANT SELECT ON dbo.tbMaster2 TO opd_desk;
  GRANT INSERT ON dbo.tbMaster2 TO opd_desk;
  GRANT UPDATE ON dbo.tbMaster2 TO opd_desk;
  GRANT SELECT ON dbo.tbMasterAccount TO opd_desk;
  GRANT SELECT ON dbo.tbMasterAllergies TO opd_desk;
  GRANT INSERT ON dbo.tbMasterAllergies TO opd_desk;
  GRANT UPDATE ON dbo.tbMasterAllergies TO opd_desk;
  GRANT INSERT ON dbo.tbMasterDependent TO opd_desk;
  GRANT SELECT ON dbo.tbMasterMedicalHistory TO opd_desk;
  GRANT INSERT ON dbo.tbMasterMedicalHistory TO opd_desk;
  GRANT UPDATE ON dbo.tbMasterMedicalHistory TO opd_desk;
  GRANT INSERT ON dbo.tbOPDRevokedLog TO opd_desk;
  GRANT INSERT ON dbo.tbOPDUserLog TO opd_desk;
  GRANT INSERT ON dbo.tbOpdHMOLOA TO opd_desk;
  GRANT UPDATE ON dbo.tbOpdHMOLOA TO opd_desk;
  GRANT INSERT ON dbo.tbOutPatient TO opd_desk;
  GRANT SELECT ON dbo.tbOutPatientContact TO opd_desk;
  GRANT INSERT ON dbo.tbOutPatientContact TO opd_desk;
  GRANT UPDATE ON dbo.tbOutPatientContact TO opd_desk;
  GRANT SELECT ON dbo.tbOutPatientHistory TO opd_desk;
  GRANT INSERT ON dbo.tbOutPatientHistory TO opd_desk;
  GRANT UPDATE ON dbo.tbOutPatientHistory TO opd_desk;
  GRANT SELECT ON dbo.tbOutProfile TO opd_desk;
  GRANT INSERT ON dbo.tbOutProfile TO opd_desk;
  GRANT UPDATE ON dbo.tbOutProfile TO opd_desk;
  GRANT SELECT ON dbo.tbPatient TO opd_desk;
END
GO
-- Where it knows no rights for functions, everybody has them, and the script goes on.
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN TRY
  GRANT EXECUTE ON dbo.OPD_Folded TO opd_desk;
  GRANT EXECUTE ON dbo.OPD_Moment TO opd_desk;
  GRANT EXECUTE ON dbo.OPD_Age TO opd_desk;
  GRANT EXECUTE ON dbo.OPD_Address TO opd_desk;
END TRY
BEGIN CATCH
  PRINT ERROR_MESSAGE();
END CATCH
GO
-- One that answers rows is of another kind, about which the answer may be another one.
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN TRY
  GRANT EXECUTE ON dbo.OPD_GivenNames TO opd_desk;
END TRY
BEGIN CATCH
  PRINT ERROR_MESSAGE();
END CATCH
GO
USE Build_File;
GO
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
  GRANT SELECT ON dbo.vwDoctor TO opd_desk;
GO
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN TRY
  GRANT EXECUTE ON dbo.OPD_Folded TO opd_desk;
END TRY
BEGIN CATCH
  PRINT ERROR_MESSAGE();
END CATCH
GO
USE billing;
GO
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
  GRANT SELECT ON dbo.tbBill TO opd_desk;
GO
