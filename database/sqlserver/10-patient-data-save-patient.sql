-- Writing a patient: the master, and what belongs to the patient whatever the visit.
--
-- A row that is not there yet is made first, with what it cannot be without, then every column is written. Where two
-- desks make the same row at once, the slower one writes into the row of the quicker one. What a procedure writes it
-- writes whole or not at all: in a transaction of its own, or in its caller's, which an error leaves to the caller.
-- Texts come in wider than any column: one that is too long for its column is an error, and never cut.
USE Patient_Data;
GO
DROP PROCEDURE IF EXISTS dbo.sp_aopd_Update_TbMaster;
GO
CREATE PROCEDURE dbo.sp_aopd_Update_TbMaster
  @HospNum nvarchar(4000),
  @LastName nvarchar(4000),
  @FirstName nvarchar(4000),
  @MiddleName nvarchar(4000),
  @HouseStreet nvarchar(4000),
  @Barangay nvarchar(4000),
  @ZipCode nvarchar(4000),
  @Sex nvarchar(4000),
  @BirthDate nvarchar(4000),
  @TelNum nvarchar(4000),
  @Age nvarchar(4000),
  @Employer nvarchar(4000),
  @EmployerAddress nvarchar(4000),
  @EmployerTelNum nvarchar(4000),
  @IDNum nvarchar(4000),
  @GuarantorName nvarchar(4000),
  @GuarantorAddress nvarchar(4000),
  @GuarantorTelnum nvarchar(4000),
  @GuarantorEmployer nvarchar(4000),
  @InformantName nvarchar(4000),
  @InformantAddress nvarchar(4000),
  @InformantRelation nvarchar(4000),
  @InformantTelNum nvarchar(4000),
  @CivilStatus nvarchar(4000),
  @GuarantorEmployerAddress nvarchar(4000),
  @Argument26 nvarchar(4000),
  @Argument27 nvarchar(4000),
  @Argument28 nvarchar(4000),
  @Argument29 nvarchar(4000),
  @Argument30 nvarchar(4000),
  @Argument31 nvarchar(4000) = NULL,
  @Argument32 nvarchar(4000) = NULL
AS
BEGIN
  SET NOCOUNT ON;
  -- Behind the twenty-fifth argument stand senior mark, senior number, occupation, blood type and title. A hospital
  -- that writes the religion into the master puts its code before them and the senior mark twice.
  IF @Argument31 IS NOT NULL AND @Argument32 IS NULL
  BEGIN
    RAISERROR(N'sp_aopd_Update_TbMaster expects 30 or 32 arguments.', 16, 1);
    RETURN;
  END
  DECLARE @Religious bit = CASE WHEN @Argument32 IS NULL THEN 0 ELSE 1 END;
  DECLARE @SeniorCitizenIDNo nvarchar(4000) = CASE WHEN @Religious = 1 THEN @Argument29 ELSE @Argument27 END;
  DECLARE @Occupation nvarchar(4000) = CASE WHEN @Religious = 1 THEN @Argument30 ELSE @Argument28 END;
  DECLARE @BloodType nvarchar(4000) = CASE WHEN @Religious = 1 THEN @Argument31 ELSE @Argument29 END;
  DECLARE @Title nvarchar(4000) = CASE WHEN @Religious = 1 THEN @Argument32 ELSE @Argument30 END;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    DECLARE @Born datetime = dbo.OPD_Moment(@BirthDate, 0);
    IF @Own = 1 BEGIN TRANSACTION;
    DECLARE @IsNew bit = 0;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbMaster WHERE HospNum = @HospNum)
      SET @IsNew = 1;
    -- Under a number that this session has drawn the first row is a new one: where another's stands already, it fails.
    DELETE FROM dbo.tbDrawnNumber WHERE Number = @HospNum AND Session = @@SPID;
    IF @@ROWCOUNT > 0
      INSERT INTO dbo.tbMaster (HospNum, LastName, FirstName) VALUES (@HospNum, @LastName, @FirstName);
    ELSE IF NOT EXISTS (SELECT 1 FROM dbo.tbMaster WHERE HospNum = @HospNum)
    BEGIN TRY
      INSERT INTO dbo.tbMaster (HospNum, LastName, FirstName) VALUES (@HospNum, @LastName, @FirstName);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL
    BEGIN
      -- What the save is, for the procedures that follow it. A patient who is registered again, after a part of the
      -- registration failed, is new to them still.
      DECLARE @StillNew bit = @IsNew;
      IF EXISTS (SELECT 1 FROM dbo.tbAuditedSave
                 WHERE Session = @@SPID AND IsNew = 1 AND HospNum = @HospNum AND IDNum = @IDNum)
        SET @StillNew = 1;
      DELETE FROM dbo.tbAuditedSave WHERE Session = @@SPID;
      INSERT INTO dbo.tbAuditedSave (Session, HospNum, IDNum, IsNew, LastID)
      SELECT @@SPID, @HospNum, @IDNum, @StillNew, ISNULL(MAX(AuditID), 0) FROM dbo.tbMasterAudit;
      IF @IsNew = 1
        INSERT INTO dbo.tbMasterAudit (HospNum, IDNum, ChangedAt, Login, Workstation, Session, What)
        VALUES (@HospNum, @IDNum, GETDATE(), SUSER_SNAME(), HOST_NAME(), @@SPID, N'registered');
    END
    -- The age follows from the birth date.
    IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL
      INSERT INTO dbo.tbMasterAudit (HospNum, IDNum, ChangedAt, UserID, Login, Workstation, Session, What, OldValue,
        NewValue)
      SELECT @HospNum, this.IDNum, GETDATE(), this.UserID, SUSER_SNAME(), HOST_NAME(), @@SPID, change.What,
        change.OldValue, change.NewValue
      FROM (
        SELECT N'LastName' AS What, LastName AS OldValue, @LastName AS NewValue
          FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'FirstName', FirstName, @FirstName FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'MiddleName', MiddleName, @MiddleName FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'Title', Title, @Title FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'HouseStreet', HouseStreet, @HouseStreet FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'Barangay', Barangay, @Barangay FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'ZipCode', ZipCode, @ZipCode FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'Sex', Sex, @Sex FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'BirthDate', CONVERT(nvarchar(10), BirthDate, 120), CONVERT(nvarchar(10), @Born, 120)
          FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'telnum', telnum, @TelNum FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'CivilStatus', CivilStatus, @CivilStatus FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'BloodType', BloodType, @BloodType FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'Occupation', Occupation, @Occupation FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'Employer', Employer, @Employer FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'EmployerAddress', EmployerAddress, @EmployerAddress
          FROM dbo.tbMaster WHERE HospNum = @HospNum
        UNION ALL SELECT N'EmployerTelNum', EmployerTelNum, @EmployerTelNum FROM dbo.tbMaster WHERE HospNum = @HospNum
      ) AS change LEFT JOIN dbo.tbAuditedSave AS this ON this.Session = @@SPID AND this.HospNum = @HospNum
      WHERE ISNULL(change.OldValue, N'') <> ISNULL(change.NewValue, N'') COLLATE Latin1_General_BIN2 AND @IsNew = 0;
    UPDATE dbo.tbMaster SET
      LastName = @LastName, FirstName = @FirstName, MiddleName = @MiddleName, Title = @Title,
      HouseStreet = @HouseStreet, Barangay = @Barangay, ZipCode = @ZipCode, Sex = @Sex, BirthDate = @Born,
      Age = @Age, telnum = @TelNum, CivilStatus = @CivilStatus, BloodType = @BloodType, Occupation = @Occupation,
      Employer = @Employer, EmployerAddress = @EmployerAddress, EmployerTelNum = @EmployerTelNum
    WHERE HospNum = @HospNum;
    IF @Religious = 1
      UPDATE dbo.tbMaster SET ReligionID = @Argument26 WHERE HospNum = @HospNum;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbOutPatientContact WHERE IDNum = @IDNum)
    BEGIN TRY
      INSERT INTO dbo.tbOutPatientContact (IDNum) VALUES (@IDNum);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    UPDATE dbo.tbOutPatientContact SET
      GuarantorName = @GuarantorName, GuarantorAddress = @GuarantorAddress, GuarantorTelnum = @GuarantorTelnum,
      GuarantorEmployer = @GuarantorEmployer, GuarantorEmployerAddress = @GuarantorEmployerAddress,
      InformantName = @InformantName, InformantAddress = @InformantAddress, InformantRelation = @InformantRelation,
      InformantTelNum = @InformantTelNum, SeniorCitizenIDNo = @SeniorCitizenIDNo
    WHERE IDNum = @IDNum;
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_Save_TbMasterAllergies;
GO
CREATE PROCEDURE dbo.sp_AOPD_Save_TbMasterAllergies
  @HospNum nvarchar(4000),
  @AllergyID1 nvarchar(4000),
  @AllergyID2 nvarchar(4000),
  @AllergyID3 nvarchar(4000),
  @AllergyID4 nvarchar(4000),
  @AllergyID5 nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbMasterAllergies WHERE HospNum = @HospNum)
    BEGIN TRY
      INSERT INTO dbo.tbMasterAllergies (HospNum) VALUES (@HospNum);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL
      INSERT INTO dbo.tbMasterAudit (HospNum, IDNum, ChangedAt, UserID, Login, Workstation, Session, What, OldValue,
        NewValue)
      SELECT @HospNum, this.IDNum, GETDATE(), this.UserID, SUSER_SNAME(), HOST_NAME(), @@SPID, change.What,
        change.OldValue, change.NewValue
      FROM (
        SELECT N'AllergyID1' AS What, AllergyID1 AS OldValue, @AllergyID1 AS NewValue
          FROM dbo.tbMasterAllergies WHERE HospNum = @HospNum
        UNION ALL SELECT N'AllergyID2', AllergyID2, @AllergyID2 FROM dbo.tbMasterAllergies WHERE HospNum = @HospNum
        UNION ALL SELECT N'AllergyID3', AllergyID3, @AllergyID3 FROM dbo.tbMasterAllergies WHERE HospNum = @HospNum
        UNION ALL SELECT N'AllergyID4', AllergyID4, @AllergyID4 FROM dbo.tbMasterAllergies WHERE HospNum = @HospNum
        UNION ALL SELECT N'AllergyID5', AllergyID5, @AllergyID5 FROM dbo.tbMasterAllergies WHERE HospNum = @HospNum
      ) AS change LEFT JOIN dbo.tbAuditedSave AS this ON this.Session = @@SPID AND this.HospNum = @HospNum
      WHERE ISNULL(change.OldValue, N'') <> ISNULL(change.NewValue, N'') COLLATE Latin1_General_BIN2
        AND ISNULL(this.IsNew, 0) = 0;
    UPDATE dbo.tbMasterAllergies SET
      AllergyID1 = @AllergyID1, AllergyID2 = @AllergyID2, AllergyID3 = @AllergyID3, AllergyID4 = @AllergyID4,
      AllergyID5 = @AllergyID5
    WHERE HospNum = @HospNum;
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_Adm_UpdateMaster2;
GO
CREATE PROCEDURE dbo.sp_Adm_UpdateMaster2
  @HospNum nvarchar(4000),
  @BirthPlace nvarchar(4000),
  @NationalityID nvarchar(4000),
  @ReligionID nvarchar(4000),
  @Spouse nvarchar(4000),
  @mother nvarchar(4000),
  @Father nvarchar(4000),
  @Employer nvarchar(4000),
  @EmployerTelNum nvarchar(4000),
  @EmployerAddress nvarchar(4000),
  @ContactName nvarchar(4000),
  @ContactAddress nvarchar(4000),
  @ContactRelation nvarchar(4000),
  @ContactTelNum nvarchar(4000),
  @SpouseAddress nvarchar(4000),
  @SpouseTelNum nvarchar(4000),
  @FatherAddress nvarchar(4000),
  @FatherTelNum nvarchar(4000),
  @motherAddress nvarchar(4000),
  @motherTelNum nvarchar(4000),
  @BarangayCaptain nvarchar(4000),
  @Position nvarchar(4000),
  @EmploymentType int,
  @EmploymentLocation int,
  @EmployerFax nvarchar(4000),
  @EmployerEmail nvarchar(4000),
  @SpouseEmpName nvarchar(4000),
  @SpouseEmpAddress nvarchar(4000),
  @SpouseEmpTelNum nvarchar(4000),
  @SpouseEmpFax nvarchar(4000),
  @SpouseEmpEmail nvarchar(4000),
  @PhilHealth int,
  @Unused nvarchar(4000),
  @HouseHold nvarchar(4000),
  @Email nvarchar(4000),
  @CellNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbMaster2 WHERE HospNum = @HospNum)
    BEGIN TRY
      INSERT INTO dbo.tbMaster2 (HospNum) VALUES (@HospNum);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL -- the employer was compared with the master's
      INSERT INTO dbo.tbMasterAudit (HospNum, IDNum, ChangedAt, UserID, Login, Workstation, Session, What, OldValue,
        NewValue)
      SELECT @HospNum, this.IDNum, GETDATE(), this.UserID, SUSER_SNAME(), HOST_NAME(), @@SPID, change.What,
        change.OldValue, change.NewValue
      FROM (
        SELECT N'BirthPlace' AS What, BirthPlace AS OldValue, @BirthPlace AS NewValue
          FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'NationalityID', NationalityID, @NationalityID FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'ReligionID', ReligionID, @ReligionID FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'Spouse', Spouse, @Spouse FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'mother', mother, @mother FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'Father', Father, @Father FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'ContactName', ContactName, @ContactName FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'ContactAddress', ContactAddress, @ContactAddress FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'ContactRelation', ContactRelation, @ContactRelation
          FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'ContactTelNum', ContactTelNum, @ContactTelNum FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'SpouseAddress', SpouseAddress, @SpouseAddress FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'SpouseTelNum', SpouseTelNum, @SpouseTelNum FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'FatherAddress', FatherAddress, @FatherAddress FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'FatherTelNum', FatherTelNum, @FatherTelNum FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'motherAddress', motherAddress, @motherAddress FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'motherTelNum', motherTelNum, @motherTelNum FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'BarangayCaptain', BarangayCaptain, @BarangayCaptain
          FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'Position', Position, @Position FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'EmploymentType', CAST(ISNULL(EmploymentType, 0) AS nvarchar(20)),
          CAST(@EmploymentType AS nvarchar(20)) FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'EmploymentLocation', CAST(ISNULL(EmploymentLocation, 0) AS nvarchar(20)),
          CAST(@EmploymentLocation AS nvarchar(20)) FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'EmployerFax', EmployerFax, @EmployerFax FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'EmployerEmail', EmployerEmail, @EmployerEmail FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'SpouseEmpName', SpouseEmpName, @SpouseEmpName FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'SpouseEmpAddress', SpouseEmpAddress, @SpouseEmpAddress
          FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'SpouseEmpTelNum', SpouseEmpTelNum, @SpouseEmpTelNum
          FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'SpouseEmpFax', SpouseEmpFax, @SpouseEmpFax FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'SpouseEmpEmail', SpouseEmpEmail, @SpouseEmpEmail FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'PhilHealth', CAST(ISNULL(PhilHealth, 0) AS nvarchar(20)), CAST(@PhilHealth AS nvarchar(20))
          FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'HouseHold', HouseHold, @HouseHold FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'Email', Email, @Email FROM dbo.tbMaster2 WHERE HospNum = @HospNum
        UNION ALL SELECT N'CellNum', CellNum, @CellNum FROM dbo.tbMaster2 WHERE HospNum = @HospNum
      ) AS change LEFT JOIN dbo.tbAuditedSave AS this ON this.Session = @@SPID AND this.HospNum = @HospNum
      WHERE ISNULL(change.OldValue, N'') <> ISNULL(change.NewValue, N'') COLLATE Latin1_General_BIN2
        AND ISNULL(this.IsNew, 0) = 0;
    UPDATE dbo.tbMaster2 SET
      BirthPlace = @BirthPlace, NationalityID = @NationalityID, ReligionID = @ReligionID, Spouse = @Spouse,
      mother = @mother, Father = @Father, Employer = @Employer, EmployerTelNum = @EmployerTelNum,
      EmployerAddress = @EmployerAddress, ContactName = @ContactName, ContactAddress = @ContactAddress,
      ContactRelation = @ContactRelation, ContactTelNum = @ContactTelNum, SpouseAddress = @SpouseAddress,
      SpouseTelNum = @SpouseTelNum, FatherAddress = @FatherAddress, FatherTelNum = @FatherTelNum,
      motherAddress = @motherAddress, motherTelNum = @motherTelNum, BarangayCaptain = @BarangayCaptain,
      Position = @Position, EmploymentType = @EmploymentType, EmploymentLocation = @EmploymentLocation,
      EmployerFax = @EmployerFax, EmployerEmail = @EmployerEmail, SpouseEmpName = @SpouseEmpName,
      SpouseEmpAddress = @SpouseEmpAddress, SpouseEmpTelNum = @SpouseEmpTelNum, SpouseEmpFax = @SpouseEmpFax,
      SpouseEmpEmail = @SpouseEmpEmail, PhilHealth = @PhilHealth, HouseHold = @HouseHold, Email = @Email,
      CellNum = @CellNum
    WHERE HospNum = @HospNum;
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
DROP PROCEDURE IF EXISTS dbo.proc_Adm_Update_tbMasterMedicalHistory;
GO
CREATE PROCEDURE dbo.proc_Adm_Update_tbMasterMedicalHistory
  @HospNum nvarchar(4000),
  @Hypertension int,
  @Diabetes int,
  @Hepatitis int,
  @Allergies int,
  @Tubercolosis int,
  @PepticUlcer int,
  @BloodDisease int,
  @BronchialAsthma int,
  @Others nvarchar(max)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    IF NOT EXISTS (SELECT 1 FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum)
    BEGIN TRY
      INSERT INTO dbo.tbMasterMedicalHistory (HospNum) VALUES (@HospNum);
    END TRY
    BEGIN CATCH
      IF ERROR_NUMBER() <> 2627 THROW; -- else another desk was quicker
    END CATCH
    IF OBJECT_ID(N'dbo.tbMasterAudit', N'U') IS NOT NULL
      INSERT INTO dbo.tbMasterAudit (HospNum, IDNum, ChangedAt, UserID, Login, Workstation, Session, What, OldValue,
        NewValue)
      SELECT @HospNum, this.IDNum, GETDATE(), this.UserID, SUSER_SNAME(), HOST_NAME(), @@SPID, change.What,
        change.OldValue, change.NewValue
      FROM (
        SELECT N'Hypertension' AS What, CAST(ISNULL(Hypertension, 0) AS nvarchar(20)) AS OldValue,
          CAST(@Hypertension AS nvarchar(20)) AS NewValue FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'Diabetes', CAST(ISNULL(Diabetes, 0) AS nvarchar(20)), CAST(@Diabetes AS nvarchar(20))
          FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'Hepatitis', CAST(ISNULL(Hepatitis, 0) AS nvarchar(20)), CAST(@Hepatitis AS nvarchar(20))
          FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'Allergies', CAST(ISNULL(Allergies, 0) AS nvarchar(20)), CAST(@Allergies AS nvarchar(20))
          FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'Tubercolosis', CAST(ISNULL(Tubercolosis, 0) AS nvarchar(20)),
          CAST(@Tubercolosis AS nvarchar(20)) FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'PepticUlcer', CAST(ISNULL(PepticUlcer, 0) AS nvarchar(20)),
          CAST(@PepticUlcer AS nvarchar(20)) FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'BloodDisease', CAST(ISNULL(BloodDisease, 0) AS nvarchar(20)),
          CAST(@BloodDisease AS nvarchar(20)) FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'BronchialAsthma', CAST(ISNULL(BronchialAsthma, 0) AS nvarchar(20)),
          CAST(@BronchialAsthma AS nvarchar(20)) FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
        UNION ALL SELECT N'Others', Others, @Others FROM dbo.tbMasterMedicalHistory WHERE HospNum = @HospNum
      ) AS change LEFT JOIN dbo.tbAuditedSave AS this ON this.Session = @@SPID AND this.HospNum = @HospNum
      WHERE ISNULL(change.OldValue, N'') <> ISNULL(change.NewValue, N'') COLLATE Latin1_General_BIN2
        AND ISNULL(this.IsNew, 0) = 0;
    UPDATE dbo.tbMasterMedicalHistory SET
      Hypertension = @Hypertension, Diabetes = @Diabetes, Hepatitis = @Hepatitis, Allergies = @Allergies,
      Tubercolosis = @Tubercolosis, PepticUlcer = @PepticUlcer, BloodDisease = @BloodDisease,
      BronchialAsthma = @BronchialAsthma, Others = @Others
    WHERE HospNum = @HospNum;
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
-- The hospital number comes without quotes, and a server reads 00000017 as the number 17: it gets its zeros back.
DROP PROCEDURE IF EXISTS dbo.sp_Adm_SaveDependents;
GO
CREATE PROCEDURE dbo.sp_Adm_SaveDependents
  @HospNum nvarchar(4000),
  @Name nvarchar(4000),
  @BirthDate nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  IF LEN(@HospNum) < 8 AND NOT EXISTS (SELECT 1 FROM dbo.tbMaster WHERE HospNum = @HospNum)
    SET @HospNum = RIGHT(N'00000000' + @HospNum, 8);
  INSERT INTO dbo.tbMasterDependent (SeqNum, Name, BirthDate) VALUES (@HospNum, @Name, dbo.OPD_Moment(@BirthDate, 0));
END
GO
