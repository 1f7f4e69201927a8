-- The numbers of new patients, visits and files.
--
-- A number is drawn by an UPDATE of its counter, whose lock lasts until the transaction ends, and read behind it:
-- whatever the isolation level, two desks never draw the same one. It goes on until the number is free, because a
-- database that was restored, or another program, may have gone ahead of the counter.
USE Patient_Data;
GO
DROP PROCEDURE IF EXISTS dbo.sp_adm_GetNewHospNum;
GO
CREATE PROCEDURE dbo.sp_adm_GetNewHospNum
  @HospNum nvarchar(8) OUTPUT
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  DECLARE @Number bigint;
  DECLARE @Drawn nvarchar(20);
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    UPDATE dbo.tbCounter SET Last = CASE WHEN Last < 0 THEN 1 ELSE Last + 1 END WHERE Name = N'HospNum';
    SELECT @Number = Last FROM dbo.tbCounter WHERE Name = N'HospNum';
    SET @Drawn = RIGHT(N'00000000' + CAST(@Number AS nvarchar(20)), 8);
    WHILE EXISTS (SELECT 1 FROM dbo.tbMaster WHERE HospNum = @Drawn)
    BEGIN
      SET @Number = @Number + 1;
      SET @Drawn = RIGHT(N'00000000' + CAST(@Number AS nvarchar(20)), 8);
    END
    -- A number that has outgrown its place is no number: cut, it would be another one's.
    IF @Number IS NULL OR @Number > 99999999
      RAISERROR(N'The numbers for @HospNum are used up, or their counter is missing.', 16, 1);
    UPDATE dbo.tbCounter SET Last = @Number WHERE Name = N'HospNum';
    -- Who draws anew has given up what was drawn before.
    DELETE FROM dbo.tbDrawnNumber WHERE Session = @@SPID AND Number NOT LIKE N'%B';
    INSERT INTO dbo.tbDrawnNumber (Number, Session) VALUES (@Drawn, @@SPID);
    IF @Own = 1 COMMIT TRANSACTION;
    SET @HospNum = @Drawn;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
-- Visits bear the number with a "B", and so do contacts and history, which may be there without a visit.
DROP PROCEDURE IF EXISTS dbo.sp_aopd_GetNewOPDID;
GO
CREATE PROCEDURE dbo.sp_aopd_GetNewOPDID
  @IdNum nvarchar(10) OUTPUT
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  DECLARE @Number bigint;
  DECLARE @Drawn nvarchar(20);
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    UPDATE dbo.tbCounter SET Last = CASE WHEN Last < 0 THEN 1 ELSE Last + 1 END WHERE Name = N'OPDID';
    SELECT @Number = Last FROM dbo.tbCounter WHERE Name = N'OPDID';
    SET @Drawn = RIGHT(N'0000000000' + CAST(@Number AS nvarchar(20)), 10);
    WHILE EXISTS (SELECT 1 FROM dbo.tbOutPatient WHERE IDNum = @Drawn + N'B')
       OR EXISTS (SELECT 1 FROM dbo.tbOutPatientContact WHERE IDNum = @Drawn + N'B')
       OR EXISTS (SELECT 1 FROM dbo.tbOutPatientHistory WHERE IDNum = @Drawn + N'B')
    BEGIN
      SET @Number = @Number + 1;
      SET @Drawn = RIGHT(N'0000000000' + CAST(@Number AS nvarchar(20)), 10);
    END
    -- A number that has outgrown its place is no number: cut, it would be another one's.
    IF @Number IS NULL OR @Number > 9999999999
      RAISERROR(N'The numbers for @IdNum are used up, or their counter is missing.', 16, 1);
    UPDATE dbo.tbCounter SET Last = @Number WHERE Name = N'OPDID';
    -- Who draws anew has given up what was drawn before.
    DELETE FROM dbo.tbDrawnNumber WHERE Session = @@SPID AND Number LIKE N'%B';
    INSERT INTO dbo.tbDrawnNumber (Number, Session) VALUES (@Drawn + N'B', @@SPID);
    IF @Own = 1 COMMIT TRANSACTION;
    SET @IdNum = @Drawn;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
-- A patient keeps the file number once it is given; a new one is free.
DROP PROCEDURE IF EXISTS dbo.OPD_UpdateFileNum;
GO
CREATE PROCEDURE dbo.OPD_UpdateFileNum
  @HospNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Own bit = CASE WHEN @@TRANCOUNT = 0 THEN 1 ELSE 0 END;
  DECLARE @Number int;
  BEGIN TRY
    IF @Own = 1 BEGIN TRANSACTION;
    -- The counter first: whoever gives file numbers waits here for the others.
    UPDATE dbo.tbCounter SET Last = Last + 1
    WHERE Name = N'FileNum' AND EXISTS (SELECT 1 FROM dbo.tbMaster WHERE HospNum = @HospNum AND FileNum IS NULL);
    IF @@ROWCOUNT > 0
    BEGIN
      SELECT @Number = Last FROM dbo.tbCounter WHERE Name = N'FileNum';
      WHILE EXISTS (SELECT 1 FROM dbo.tbMaster WHERE FileNum = @Number)
        SET @Number = @Number + 1;
      UPDATE dbo.tbCounter SET Last = @Number WHERE Name = N'FileNum';
      UPDATE dbo.tbMaster SET FileNum = @Number WHERE HospNum = @HospNum AND FileNum IS NULL;
    END
    IF @Own = 1 COMMIT TRANSACTION;
  END TRY
  BEGIN CATCH
    IF @Own = 1 AND @@TRANCOUNT > 0 ROLLBACK TRANSACTION;
    THROW;
  END CATCH
END
GO
