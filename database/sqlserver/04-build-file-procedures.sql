-- What the reference files are asked.
USE Build_File;
GO
-- A text as it is compared when somebody looks for it: in capitals, letters without their accents, one kind of
-- apostrophe; with @Bare = 1 also without blanks, hyphens, full stops and apostrophes. The same stands in
-- Patient_Data.
DROP FUNCTION IF EXISTS dbo.OPD_Folded;
GO
CREATE FUNCTION dbo.OPD_Folded (@Text nvarchar(4000), @Bare bit)
RETURNS nvarchar(4000)
AS
BEGIN
  -- The bare letters of the characters 192 to 223 and 256 to 383; a dot stands for what has none.
  DECLARE @Latin nvarchar(40) = N'AAAAAAACEEEEIIIIDNOOOOO.OUUUUY.S';
  DECLARE @Extended nvarchar(130) = N'AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIIIIIJJKKKLLLLLLLLLLNNNNNNNNN'
                                  + N'OOOOOOOORRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS';
  DECLARE @Capitals nvarchar(4000) = UPPER(@Text);
  DECLARE @Length int = LEN(@Capitals + N'.') - 1; -- LEN counts no blanks at the end
  DECLARE @Result nvarchar(4000) = N'';
  DECLARE @At int = 1;
  DECLARE @Letter nvarchar(1);
  DECLARE @Code int;
  WHILE @At <= @Length
  BEGIN
    SET @Letter = SUBSTRING(@Capitals, @At, 1);
    SET @Code = UNICODE(@Letter);
    IF @Code BETWEEN 192 AND 223 AND @Code NOT IN (215, 222)
      SET @Letter = SUBSTRING(@Latin, @Code - 191, 1);
    ELSE IF @Code BETWEEN 256 AND 383
      SET @Letter = SUBSTRING(@Extended, @Code - 255, 1);
    ELSE IF @Code IN (96, 180, 699, 700, 8216, 8217, 8242) -- apostrophes, as they are written
    BEGIN
      SET @Letter = N'''';
      SET @Code = 39;
    END
    -- An accent that stands by itself behind its letter is left out.
    IF @Code NOT BETWEEN 768 AND 879 AND NOT (@Bare = 1 AND @Code IN (32, 39, 45, 46))
      SET @Result = @Result + @Letter;
    SET @At = @At + 1;
  END
  RETURN @Result;
END
GO
-- A doctor as the lookups show one: by the full name.
DROP VIEW IF EXISTS dbo.vwDoctor;
GO
CREATE VIEW dbo.vwDoctor AS
SELECT DoctorID,
       LTRIM(RTRIM(LastName)) + N', ' + LTRIM(RTRIM(FirstName))
         + CASE WHEN LTRIM(RTRIM(ISNULL(MiddleName, N''))) = N'' THEN N'' ELSE N', ' + MiddleName END AS FullName,
       ServiceID1, ServiceID2, ServiceID3, DutyDays, Consultations
FROM dbo.tbCoDoctor;
GO
DROP PROCEDURE IF EXISTS dbo.global_SearchBarangay;
GO
CREATE PROCEDURE dbo.global_SearchBarangay
  @BarangayID nvarchar(4000),
  @Mode nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT BarangayID, Barangay FROM dbo.tbCoBarangay WHERE BarangayID = @BarangayID;
END
GO
-- The doctors of a service, or all of them, the least consulted first.
DROP PROCEDURE IF EXISTS dbo.global_SearchDoctor_By_Specialization;
GO
CREATE PROCEDURE dbo.global_SearchDoctor_By_Specialization
  @ServiceID nvarchar(4000),
  @Everybody int
AS
BEGIN
  SET NOCOUNT ON;
  SELECT d.FullName AS Doctor, d.DoctorID, COALESCE(s1.Service, N'') AS Specialization1,
         COALESCE(s2.Service, N'') AS Specialization2, COALESCE(s3.Service, N'') AS Specialization3
  FROM dbo.vwDoctor AS d
  LEFT JOIN dbo.tbCoService AS s1 ON s1.ServiceID = d.ServiceID1
  LEFT JOIN dbo.tbCoService AS s2 ON s2.ServiceID = d.ServiceID2
  LEFT JOIN dbo.tbCoService AS s3 ON s3.ServiceID = d.ServiceID3
  WHERE @Everybody = 1
     OR (LTRIM(@ServiceID) <> N'' AND @ServiceID IN (d.ServiceID1, d.ServiceID2, d.ServiceID3))
  ORDER BY d.Consultations, d.FullName, d.DoctorID;
END
GO
-- Mode 7 is the doctor of exactly that code, who must work for the service where one is given. Mode 6 lists the doctors
-- whose code or name contains the text, those of the service first. Mode 5 lists who is on duty for the service today.
DROP PROCEDURE IF EXISTS dbo.sp_Bui_Search_Doctor;
GO
CREATE PROCEDURE dbo.sp_Bui_Search_Doctor
  @ServiceID nvarchar(4000),
  @Criteria nvarchar(4000),
  @Unused nvarchar(4000),
  @Mode nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Wanted nvarchar(4000) = dbo.OPD_Folded(@Criteria, 0);
  -- Counted from a Sunday, so that no setting of the session decides which day is the first.
  DECLARE @Weekday nvarchar(1) = CAST(DATEDIFF(day, CAST('19000107' AS datetime), GETDATE()) % 7 AS nvarchar(1));
  SELECT doctor.FullName AS Description, doctor.DoctorID AS Code
  FROM (SELECT d.DoctorID, d.FullName, d.DutyDays,
               CASE WHEN LTRIM(@ServiceID) <> N'' AND @ServiceID IN (d.ServiceID1, d.ServiceID2, d.ServiceID3)
                    THEN 1 ELSE 0 END AS Serves
        FROM dbo.vwDoctor AS d) AS doctor
  WHERE (@Mode = N'7' AND doctor.DoctorID = @Criteria AND (doctor.Serves = 1 OR LTRIM(@ServiceID) = N''))
     OR (@Mode = N'6'
         AND (@Wanted = N''
              OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(doctor.DoctorID, 0)) > 0
              OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(doctor.FullName, 0)) > 0))
     OR (@Mode = N'5' AND doctor.Serves = 1 AND doctor.DutyDays LIKE N'%' + @Weekday + N'%')
  ORDER BY doctor.Serves DESC, doctor.FullName, doctor.DoctorID;
END
GO
