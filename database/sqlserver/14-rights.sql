-- What a desk may do. It runs the procedures, which reach their tables by themselves, and has rights of its own only
-- where its statements name a table, and where a procedure reaches into another database.
USE LABORATORY;
GO
IF DATABASE_PRINCIPAL_ID(N'opd_desk') IS NULL CREATE ROLE opd_desk;
GO
USE billing;
GO
IF DATABASE_PRINCIPAL_ID(N'opd_desk') IS NULL CREATE ROLE opd_desk;
GO
GRANT EXECUTE ON dbo.sp_OPD_ComputeHospitalBill TO opd_desk;
GO
USE Build_File;
GO
IF DATABASE_PRINCIPAL_ID(N'opd_desk') IS NULL CREATE ROLE opd_desk;
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
IF DATABASE_PRINCIPAL_ID(N'opd_desk') IS NULL CREATE ROLE opd_desk;
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
-- Babelfish runs a trigger with the rights of whoever runs the procedure, and a function within another's search too. Where
-- it knows no rights for a function, everybody has them, and the script goes on.
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
  GRANT UPDATE ON dbo.tbMaster TO opd_desk;
GO
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN TRY
  GRANT EXECUTE ON dbo.OPD_Folded TO opd_desk;
END TRY
BEGIN CATCH
  PRINT ERROR_MESSAGE();
END CATCH
GO
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN TRY
  GRANT EXECUTE ON dbo.OPD_Moment TO opd_desk;
END TRY
BEGIN CATCH
  PRINT ERROR_MESSAGE();
END CATCH
GO
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN TRY
  GRANT EXECUTE ON dbo.OPD_Age TO opd_desk;
END TRY
BEGIN CATCH
  PRINT ERROR_MESSAGE();
END CATCH
GO
IF SERVERPROPERTY(N'babelfish') IS NOT NULL
BEGIN TRY
  GRANT EXECUTE ON dbo.OPD_Address TO opd_desk;
END TRY
BEGIN CATCH
  PRINT ERROR_MESSAGE();
END CATCH
GO
