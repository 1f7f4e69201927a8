-- Writing a visit, and the log of who changed what. The rules of 10-patient-data-save-patient.sql hold here too.
USE Patient_Data;
GO
DROP PROCEDURE IF EXISTS dbo.sp_aopd_Update_tbOutpatient;
GO
CREATE PROCEDURE dbo.sp_aopd_Update_tbOutpatient
  @HospNum nvarchar(4000),
  @IDNum nvarchar(4000),
  @AccountNum nvarchar(4000),
  @Remarks nvarchar(max),
  @ServiceID1 nvarchar(4000),
  @ServiceID2 nvarchar(4000),
  @ServiceID3 nvarchar(4000),
  @Unused1 nvarchar(4000),
  @Unused2 nvarchar(4000),
  @DoctorID1 nvarchar(4000),
  @DoctorID2 nvarchar(4000),
  @AccountType nvarchar(4000),
  @ConsultationType nvarchar(4000),
  @Weight nvarchar(4000),
  @Temperature nvarchar(4000),
  @BloodPressure nvarchar(4000),
  @VisitKind nvarchar(4000),
  @UserID nvarchar(4000),
  @AdmDate nvarchar(4000),
  @Argument20 nvarchar(max),
  @Argument21 nvarchar(4000),
  @Argument22 nvarchar(4000),
  @Argument23 nvarchar(4000),
  @Argument24 nvarchar(4000),
  @Argument25 nvarchar(max),
  @Argument26 nvarchar(4000),
  @Argument27 nvarchar(4000),
  @Argument28 nvarchar(max),
  @Argument29 nvarchar(4000),
  @Argument30 nvarchar(4000),
  @Argument31 nvarchar(4000),
  @Argument32 nvarchar(4000),
  @Argument33 nvarchar(4000),
  @Argument34 nvarchar(4000) = NULL
AS
BEGIN
  SET NOCOUNT ON;
  -- Behind the nineteenth argument stand the chief complaint, then the values of the visit, last the marks for
  -- Corvane and dialysis. A hospital whose list has 34 puts the causes of consultation first and knows a pay code;
  -- complaint and marks are not in its list, and its causes are, which the others have written with the history.
  DECLARE @Causes bit = CASE WHEN @Argument34 IS NULL THEN 0 ELSE 1 END;
  DECLARE @PulseRate nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument23 ELSE @Argument21 END;
  DECLARE @PayCode nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument24 ELSE NULL END;
  DECLARE @CardNumber nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument25 ELSE @Argument22 END;
  DECLARE @PatientType nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument26 ELSE @Argument23 END;
  DECLARE @Purpose nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument27 ELSE @Argument24 END;
  DECLARE @AccountRemarks nvarchar(max) = CASE WHEN @Causes = 1 THEN @Argument28 ELSE @Argument25 END;
  DECLARE @Height nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument29 ELSE @Argument26 END;
  DECLARE @PerUnit nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument30 ELSE @Argument27 END;
  DECLARE @SeniorCitizenID nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument32 ELSE @Argument29 END;
  DECLARE @RespiratoryRate nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument33 ELSE @Argument30 END;
  DECLARE @HMOApprovalNum nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument34 ELSE @Argument31 END;
  DECLARE @ChiefComplaints nvarchar(max) = CASE WHEN @Causes = 1 THEN NULL ELSE @Argument20 END;
  DECLARE @Cause1 nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument20 ELSE
    (SELECT CauseofConsultationID1 FROM dbo.tbOutPatientHistory WHERE IDNum = @IDNum) END;
  DECLARE @Cause2 nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument21 ELSE
    (SELECT CauseofConsultationID2 FROM dbo.tbOutPatientHistory WHERE IDNum = @IDNum) END;
  DECLARE @Cause3 nvarchar(4000) = CASE WHEN @Causes = 1 THEN @Argument22 ELSE
    (SELECT CauseofConsultationID3 FROM dbo.tbOutPatientHistory WHERE IDNum = @IDNum) END;
  DECLARE @Type nvarchar(4000) = CASE WHEN @ConsultationType = N'W' THEN N'W' ELSE @Purpose END;
  -- An account that is empty or of a paying patient is the patient's own, which is the hospital number.
  DECLARE @Account nvarchar(4000) = @AccountNum;
  DECLARE @HospPlan nvarchar(20) = N'C';
  IF @AccountType = N'P' OR LTRIM(@AccountNum) = N''
    SELECT @Account = @HospNum, @HospPlan = N'P';
  ELSE IF EXISTS (SELECT 1 FROM Build_File.dbo.tbCoCompany WHERE AccountNum = @AccountNum AND Class IN (N'P', N'H'))
    SET @HospPlan = N'I';
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    DECLARE @Admitted datetime = dbo.OPD_Moment(@AdmDate, 0);
    DECLARE @IsCorvane bit = CASE WHEN @Causes = 1 THEN 0 ELSE CAST(@Argument32 AS int) END;
    DECLARE @IsDialysis bit = CASE WHEN @Causes = 1 THEN 0 ELSE CAST(@Argument33 AS int) END;
    IF @Own = 1 BEGIN TRANSACTION;
    -- Under a number that this session has drawn the first row is a new one: where another's stands already, it fails.
    DELETE FROM dbo.tbDrawnNumber WHERE Number = @IDNum AND Session = @@SPID;
    IF @@ROWCOUNT > 0
      INSERT INTO dbo.tbOutPatient (IDNum, HospNum, AdmDate, VisitKind, Corvane, isHemodialysis)
      VALUES (@IDNum, @HospNum, @Admitted, @VisitKind, @IsCorvane, @IsDialysis);
    ELSE IF NOT EXISTS (SELECT 1 FROM dbo.tbOutPatient WHERE IDNum = @IDNum)
    BEGIN TRY
      INSERT INTO dbo.tbOutPatient (IDNum, HospNum, AdmDate, VisitKind, Corvane, isHemodialysis)
      VALUES (@IDNum, @HospNum, @Admitted, @VisitKind, @IsCorvane, @IsDialysis);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    UPDATE dbo.tbOutPatient SET
      HospNum = @HospNum, AdmDate = @Admitted, AccountNum = @Account, AccountRemarks = @AccountRemarks,
      CardNumber = @CardNumber, HMOApprovalNum = @HMOApprovalNum, HospPlan = @HospPlan, PatientType = @PatientType,
      PayCode = COALESCE(@PayCode, PayCode), ConsultationType = @Type,
      VisitKind = CASE WHEN @VisitKind = N'' THEN VisitKind ELSE @VisitKind END, ServiceID1 = @ServiceID1,
      ServiceID2 = @ServiceID2, ServiceID3 = @ServiceID3, DoctorID1 = @DoctorID1, DoctorID2 = RTRIM(@DoctorID2),
      CauseofConsultationID1 = @Cause1, CauseofConsultationID2 = @Cause2, CauseofConsultationID3 = @Cause3,
      ChiefComplaints = COALESCE(@ChiefComplaints, ChiefComplaints), Remarks = @Remarks, Height = @Height,
      Weight = @Weight, Temperature = @Temperature, BloodPressure = @BloodPressure, PulseRate = @PulseRate,
      RespiratoryRate = @RespiratoryRate, PerUnit = @PerUnit, SeniorCitizenID = @SeniorCitizenID, UserID = @UserID
    WHERE IDNum = @IDNum;
    -- The user is told last: what this save has changed so far was changed by that one.
    IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL
    BEGIN
      UPDATE dbo.tbAuditedSave SET UserID = @UserID WHERE Session = @@SPID AND IDNum = @IDNum;
      UPDATE dbo.tbMasterAudit SET UserID = @UserID
      WHERE HospNum = (SELECT HospNum FROM dbo.tbAuditedSave WHERE Session = @@SPID AND IDNum = @IDNum)
        AND AuditID > (SELECT LastID FROM dbo.tbAuditedSave WHERE Session = @@SPID) AND Session = @@SPID
        AND UserID IS NULL;
    END
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
-- The causes of consultation belong to the visit too, whose own list carries them at some hospitals only. They are
-- written here as well where the visit is known already, and read from here when its row is first written.
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_UpdateOPDHistory;
GO
CREATE PROCEDURE dbo.sp_AOPD_UpdateOPDHistory
  @HospNum nvarchar(4000),
  @IDNum nvarchar(4000),
  @ServiceID nvarchar(4000),
  @DoctorID nvarchar(4000),
  @DiagnosisID1 nvarchar(4000),
  @DiagnosisID2 nvarchar(4000),
  @DiagnosisID3 nvarchar(4000),
  @Findings nvarchar(max),
  @Medications nvarchar(max),
  @Remarks nvarchar(max),
  @Cause1 nvarchar(4000),
  @Cause2 nvarchar(4000),
  @Cause3 nvarchar(4000),
  @ChiefComplaint nvarchar(max)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbOutPatientHistory WHERE IDNum = @IDNum)
    BEGIN TRY
      INSERT INTO dbo.tbOutPatientHistory (IDNum, HospNum) VALUES (@IDNum, @HospNum);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    UPDATE dbo.tbOutPatientHistory SET
      HospNum = @HospNum, ServiceID = @ServiceID, DoctorID = @DoctorID, DiagnosisID1 = @DiagnosisID1,
      DiagnosisID2 = @DiagnosisID2, DiagnosisID3 = @DiagnosisID3, Findings = @Findings, Medications = @Medications,
      Remarks = @Remarks, CauseofConsultationID1 = @Cause1, CauseofConsultationID2 = @Cause2,
      CauseofConsultationID3 = @Cause3, ChiefComplaint = @ChiefComplaint
    WHERE IDNum = @IDNum;
    UPDATE dbo.tbOutPatient SET
      CauseofConsultationID1 = @Cause1, CauseofConsultationID2 = @Cause2, CauseofConsultationID3 = @Cause3
    WHERE IDNum = @IDNum;
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
-- Positions 1 to 3 are the attending doctors 3 to 5.
DROP PROCEDURE IF EXISTS dbo.OPD_Update_AdditionalDr;
GO
CREATE PROCEDURE dbo.OPD_Update_AdditionalDr
  @IDNum nvarchar(4000),
  @DoctorID nvarchar(4000),
  @Position nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  UPDATE dbo.tbOutPatient SET
    DoctorID3 = CASE WHEN @Position = N'1' THEN @DoctorID ELSE DoctorID3 END,
    DoctorID4 = CASE WHEN @Position = N'2' THEN @DoctorID ELSE DoctorID4 END,
    DoctorID5 = CASE WHEN @Position = N'3' THEN @DoctorID ELSE DoctorID5 END
  WHERE IDNum = @IDNum;
END
GO
-- A visit counts its doctors one after the other, within the transaction that saves it. Two visits that count the
-- same two doctors in turn would each wait for the other for ever: so the counter comes first, and the second one
-- waits there.
DROP PROCEDURE IF EXISTS dbo.sp_Adm_Update_tbAdmDoctorConsultation;
GO
CREATE PROCEDURE dbo.sp_Adm_Update_tbAdmDoctorConsultation
  @DoctorID nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  IF LTRIM(@DoctorID) = N''
    RETURN;
  UPDATE dbo.tbCounter SET Last = Last + 1 WHERE Name = N'Consultations';
  UPDATE Build_File.dbo.tbCoDoctor SET Consultations = Consultations + 1 WHERE DoctorID = @DoctorID;
END
GO
DROP PROCEDURE IF EXISTS dbo.OPD_updateConsultationDate;
GO
CREATE PROCEDURE dbo.OPD_updateConsultationDate
  @IDNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  UPDATE dbo.tbOutPatient SET ConsultationDate = GETDATE() WHERE IDNum = @IDNum;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_InsertUpdateOutProfile;
GO
CREATE PROCEDURE dbo.sp_AOPD_InsertUpdateOutProfile
  @HospNum nvarchar(4000),
  @IDNum nvarchar(4000),
  @Unused1 nvarchar(4000),
  @Unused2 nvarchar(4000),
  @Unused3 nvarchar(4000),
  @Unused4 nvarchar(4000),
  @Unused5 nvarchar(4000),
  @Unused6 nvarchar(4000),
  @Unused7 nvarchar(4000),
  @Unused8 nvarchar(4000),
  @LMP nvarchar(4000),
  @Mode nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    DECLARE @Period date = dbo.OPD_Moment(@LMP, 1);
    IF @Own = 1 BEGIN TRANSACTION;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbOutProfile WHERE IDNum = @IDNum)
    BEGIN TRY
      INSERT INTO dbo.tbOutProfile (IDNum, HospNum) VALUES (@IDNum, @HospNum);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    UPDATE dbo.tbOutProfile SET
      HospNum = @HospNum, LMP = @Period
    WHERE IDNum = @IDNum;
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_SaveHMOLOA;
GO
CREATE PROCEDURE dbo.sp_AOPD_SaveHMOLOA
  @IDNum nvarchar(4000),
  @ApprovalNo nvarchar(4000),
  @LOAAmount decimal(18, 2),
  @LOADateInformed nvarchar(4000),
  @LOAReceiver nvarchar(4000),
  @LOADateReceived nvarchar(4000),
  @LOAStatus nvarchar(4000),
  @LOARemarks nvarchar(max)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    DECLARE @Informed datetime = dbo.OPD_Moment(@LOADateInformed, 1);
    DECLARE @Received datetime = dbo.OPD_Moment(@LOADateReceived, 1);
    IF @Own = 1 BEGIN TRANSACTION;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbOpdHMOLOA WHERE IDNum = @IDNum)
    BEGIN TRY
      INSERT INTO dbo.tbOpdHMOLOA (IDNum) VALUES (@IDNum);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    UPDATE dbo.tbOpdHMOLOA SET
      ApprovalNo = @ApprovalNo, LOAAmount = @LOAAmount, LOADateInformed = @Informed, LOAReceiver = @LOAReceiver,
      LOADateReceived = @Received, LOAStatus = @LOAStatus, LOARemarks = @LOARemarks
    WHERE IDNum = @IDNum;
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_SaveOPD_UserLog;
GO
CREATE PROCEDURE dbo.sp_AOPD_SaveOPD_UserLog
  @IDNum nvarchar(4000),
  @UserID nvarchar(4000),
  @Action nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    INSERT INTO dbo.tbOPDUserLog (IDNum, UserID, Action, LoggedAt) VALUES (@IDNum, @UserID, @Action, GETDATE());
    -- The user is told last: what this save has changed so far was changed by that one.
    IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL
    BEGIN
      UPDATE dbo.tbAuditedSave SET UserID = @UserID WHERE Session = @@SPID AND IDNum = @IDNum;
      UPDATE dbo.tbMasterAudit SET UserID = @UserID
      WHERE HospNum = (SELECT HospNum FROM dbo.tbAuditedSave WHERE Session = @@SPID AND IDNum = @IDNum)
        AND AuditID > (SELECT LastID FROM dbo.tbAuditedSave WHERE Session = @@SPID) AND Session = @@SPID
        AND UserID IS NULL;
    END
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_SaveOPDRevokedLog;
GO
CREATE PROCEDURE dbo.sp_AOPD_SaveOPDRevokedLog
  @IDNum nvarchar(4000),
  @UserID nvarchar(4000),
  @Action nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  INSERT INTO dbo.tbOPDRevokedLog (IDNum, UserID, Action, LoggedAt) VALUES (@IDNum, @UserID, @Action, GETDATE());
END
GO
