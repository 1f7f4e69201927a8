-- Finding patients and codes. OPTION (RECOMPILE) has each search planned for what is looked for: a rare name is read
-- from its index, and what was not asked for takes no part.
USE Patient_Data;
GO
-- A last name matches when it begins with what was typed, however it is written; "LAST, FIRST MIDDLE" narrows both.
-- One half searches with a birth date and one without, because each has an index of its own: a day has few births
-- however many patients there are, and a common surname has many bearers.
DROP PROCEDURE IF EXISTS dbo.sp_Adm_MasterPatientSearch;
GO
CREATE PROCEDURE dbo.sp_Adm_MasterPatientSearch
  @LastName nvarchar(4000),
  @FirstName nvarchar(4000),
  @MiddleName nvarchar(4000),
  @Sex nvarchar(4000),
  @HospNum nvarchar(4000),
  @BirthDate nvarchar(4000),
  @First int,
  @Second int
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Comma int = CHARINDEX(N',' COLLATE Latin1_General_BIN2, @LastName + N',');
  DECLARE @Given nvarchar(4000) = LTRIM(RTRIM(SUBSTRING(@LastName, @Comma + 1, 4000)));
  DECLARE @Name nvarchar(4000) = dbo.OPD_Folded(LEFT(@LastName, @Comma - 1), 1);
  DECLARE @NameEnd nvarchar(4000) = @Name + NCHAR(65533); -- behind all that begin with the name
  DECLARE @Born date = dbo.OPD_Moment(@BirthDate, 1);
  DECLARE @SearchFirst nvarchar(4000) = dbo.OPD_Folded(@FirstName, 1);
  DECLARE @SearchMiddle nvarchar(4000) = dbo.OPD_Folded(@MiddleName, 1);
  DECLARE @Reading TABLE (FirstName nvarchar(4000) NOT NULL, MiddleName nvarchar(4000) NOT NULL);
  INSERT INTO @Reading (FirstName, MiddleName) SELECT FirstName, MiddleName FROM dbo.OPD_GivenNames(@Given);
  -- Whatever way it is read, the first name begins with the first word: that much the index tells.
  DECLARE @FirstWord nvarchar(4000) = ISNULL((SELECT MIN(FirstName COLLATE Latin1_General_BIN2) FROM @Reading), N'');
  DECLARE @FirstWordEnd nvarchar(4000) = @FirstWord + NCHAR(65533);

  IF @Born IS NULL
    SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, dbo.OPD_Age(m.BirthDate) AS Age,
           dbo.OPD_Address(m.HouseStreet, m.Barangay) AS Address
    FROM dbo.tbMaster AS m
    WHERE @Name <> N''
      AND m.SearchName >= @Name COLLATE Latin1_General_BIN2
      AND m.SearchName < @NameEnd COLLATE Latin1_General_BIN2
      AND m.SearchFirst >= @FirstWord COLLATE Latin1_General_BIN2
      AND m.SearchFirst < @FirstWordEnd COLLATE Latin1_General_BIN2
      AND (@Sex = N'' OR m.Sex = @Sex)
      AND (@Given = N'' OR EXISTS (
            SELECT 1 FROM @Reading AS r
            WHERE LEFT(m.SearchFirst, LEN(r.FirstName)) = r.FirstName COLLATE Latin1_General_BIN2
              AND LEFT(m.SearchMiddle, LEN(r.MiddleName)) = r.MiddleName COLLATE Latin1_General_BIN2))
      AND LEFT(m.SearchFirst, LEN(@SearchFirst)) = @SearchFirst COLLATE Latin1_General_BIN2
      AND LEFT(m.SearchMiddle, LEN(@SearchMiddle)) = @SearchMiddle COLLATE Latin1_General_BIN2
      AND (@HospNum = N'' OR m.HospNum = @HospNum)
      AND @First = 0 AND @Second = 0
    ORDER BY m.LastName, m.FirstName, m.MiddleName, m.BirthDate
    OPTION (RECOMPILE);
  ELSE
    SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, dbo.OPD_Age(m.BirthDate) AS Age,
           dbo.OPD_Address(m.HouseStreet, m.Barangay) AS Address
    FROM dbo.tbMaster AS m
    WHERE m.BirthDate = @Born
      AND @Name <> N''
      AND m.SearchName >= @Name COLLATE Latin1_General_BIN2
      AND m.SearchName < @NameEnd COLLATE Latin1_General_BIN2
      AND m.SearchFirst >= @FirstWord COLLATE Latin1_General_BIN2
      AND m.SearchFirst < @FirstWordEnd COLLATE Latin1_General_BIN2
      AND (@Sex = N'' OR m.Sex = @Sex)
      AND (@Given = N'' OR EXISTS (
            SELECT 1 FROM @Reading AS r
            WHERE LEFT(m.SearchFirst, LEN(r.FirstName)) = r.FirstName COLLATE Latin1_General_BIN2
              AND LEFT(m.SearchMiddle, LEN(r.MiddleName)) = r.MiddleName COLLATE Latin1_General_BIN2))
      AND LEFT(m.SearchFirst, LEN(@SearchFirst)) = @SearchFirst COLLATE Latin1_General_BIN2
      AND LEFT(m.SearchMiddle, LEN(@SearchMiddle)) = @SearchMiddle COLLATE Latin1_General_BIN2
      AND (@HospNum = N'' OR m.HospNum = @HospNum)
      AND @First = 0 AND @Second = 0
    ORDER BY m.LastName, m.FirstName, m.MiddleName, m.BirthDate
    OPTION (RECOMPILE);
END
GO
-- The wider second try: the sex may have been taken down wrongly, or the birth date, but not both.
DROP PROCEDURE IF EXISTS dbo.sp_Adm_MasterPatientSubSearch;
GO
CREATE PROCEDURE dbo.sp_Adm_MasterPatientSubSearch
  @LastName nvarchar(4000),
  @Sex nvarchar(4000),
  @BirthDate nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Comma int = CHARINDEX(N',' COLLATE Latin1_General_BIN2, @LastName + N',');
  DECLARE @Given nvarchar(4000) = LTRIM(RTRIM(SUBSTRING(@LastName, @Comma + 1, 4000)));
  DECLARE @Name nvarchar(4000) = dbo.OPD_Folded(LEFT(@LastName, @Comma - 1), 1);
  DECLARE @NameEnd nvarchar(4000) = @Name + NCHAR(65533);
  DECLARE @Born date = dbo.OPD_Moment(@BirthDate, 1);
  DECLARE @Reading TABLE (FirstName nvarchar(4000) NOT NULL, MiddleName nvarchar(4000) NOT NULL);
  INSERT INTO @Reading (FirstName, MiddleName) SELECT FirstName, MiddleName FROM dbo.OPD_GivenNames(@Given);
  -- Whatever way it is read, the first name begins with the first word: that much the index tells.
  DECLARE @FirstWord nvarchar(4000) = ISNULL((SELECT MIN(FirstName COLLATE Latin1_General_BIN2) FROM @Reading), N'');
  DECLARE @FirstWordEnd nvarchar(4000) = @FirstWord + NCHAR(65533);

  SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, dbo.OPD_Age(m.BirthDate) AS Age,
         dbo.OPD_Address(m.HouseStreet, m.Barangay) AS Address
  FROM dbo.tbMaster AS m
  WHERE @Name <> N''
    AND m.SearchName >= @Name COLLATE Latin1_General_BIN2
    AND m.SearchName < @NameEnd COLLATE Latin1_General_BIN2
    AND m.SearchFirst >= @FirstWord COLLATE Latin1_General_BIN2
    AND m.SearchFirst < @FirstWordEnd COLLATE Latin1_General_BIN2
    AND (@Given = N'' OR EXISTS (
          SELECT 1 FROM @Reading AS r
          WHERE LEFT(m.SearchFirst, LEN(r.FirstName)) = r.FirstName COLLATE Latin1_General_BIN2
            AND LEFT(m.SearchMiddle, LEN(r.MiddleName)) = r.MiddleName COLLATE Latin1_General_BIN2))
    AND (m.BirthDate = @Born OR (m.Sex = @Sex AND (@Born IS NULL OR YEAR(m.BirthDate) = YEAR(@Born))))
  ORDER BY m.LastName, m.FirstName, m.MiddleName, m.BirthDate
  OPTION (RECOMPILE);
END
GO
-- Kind 1 is the PHIC number, 2 the GSIS number, 3 the SSS number. They compare without blanks and hyphens, so that
-- nothing but these would be every patient without a number.
DROP PROCEDURE IF EXISTS dbo.sp_Adm_MasterPatientSearchNew;
GO
CREATE PROCEDURE dbo.sp_Adm_MasterPatientSearchNew
  @Number nvarchar(4000),
  @Kind nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Wanted nvarchar(4000) = dbo.OPD_Folded(@Number, 1);
  SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, dbo.OPD_Age(m.BirthDate) AS Age,
         dbo.OPD_Address(m.HouseStreet, m.Barangay) AS Address
  FROM dbo.tbMaster AS m
  WHERE @Wanted <> N''
    AND ((@Kind = N'1' AND m.SearchPHIC = @Wanted COLLATE Latin1_General_BIN2)
      OR (@Kind = N'2' AND m.SearchGSIS = @Wanted COLLATE Latin1_General_BIN2)
      OR (@Kind = N'3' AND m.SearchSSS = @Wanted COLLATE Latin1_General_BIN2))
  ORDER BY m.LastName, m.FirstName, m.MiddleName
  OPTION (RECOMPILE);
END
GO
DROP PROCEDURE IF EXISTS dbo.proc_Bar_Search_Patient;
GO
CREATE PROCEDURE dbo.proc_Bar_Search_Patient
  @HospNum nvarchar(4000),
  @Mode nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT m.LastName, m.FirstName, m.MiddleName, m.HospNum, m.BirthDate, dbo.OPD_Age(m.BirthDate) AS Age,
         dbo.OPD_Address(m.HouseStreet, m.Barangay) AS Address
  FROM dbo.tbMaster AS m
  WHERE m.HospNum = @HospNum;
END
GO
-- The age is a span of birth dates, so that the index answers.
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_SearchSimilarRecords;
GO
CREATE PROCEDURE dbo.sp_AOPD_SearchSimilarRecords
  @LastName nvarchar(4000),
  @FirstName nvarchar(4000),
  @Age int
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Today date = GETDATE();
  SELECT HospNum FROM dbo.tbMaster
  WHERE LastName = @LastName AND FirstName = @FirstName
    AND BirthDate >= DATEADD(day, 1 - CAST(CEILING((@Age + 1) * 365.25) AS int), @Today)
    AND BirthDate <= DATEADD(day, 0 - CAST(CEILING(@Age * 365.25) AS int), @Today);
END
GO
-- An exact code gives one row; otherwise the codes and names that contain what was typed.
DROP PROCEDURE IF EXISTS dbo.sp_Adm_SearchAdmissionType;
GO
CREATE PROCEDURE dbo.sp_Adm_SearchAdmissionType
  @Criteria nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Wanted nvarchar(4000) = dbo.OPD_Folded(@Criteria, 0);
  IF EXISTS (SELECT 1 FROM Build_File.dbo.tbCoAdmissionType WHERE AdmissionTypeID = @Criteria)
    SELECT AdmissionType AS Description, AdmissionTypeID AS Code
    FROM Build_File.dbo.tbCoAdmissionType WHERE AdmissionTypeID = @Criteria;
  ELSE
    SELECT AdmissionType AS Description, AdmissionTypeID AS Code
    FROM Build_File.dbo.tbCoAdmissionType
    WHERE @Wanted = N''
       OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(AdmissionTypeID, 0)) > 0
       OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(AdmissionType, 0)) > 0
    ORDER BY AdmissionType, AdmissionTypeID;
END
GO
-- An exact code gives one row; otherwise the codes and names that contain what was typed.
DROP PROCEDURE IF EXISTS dbo.sp_Adm_SearchBarangay;
GO
CREATE PROCEDURE dbo.sp_Adm_SearchBarangay
  @Criteria nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Wanted nvarchar(4000) = dbo.OPD_Folded(@Criteria, 0);
  IF EXISTS (SELECT 1 FROM Build_File.dbo.tbCoBarangay WHERE BarangayID = @Criteria)
    SELECT Barangay AS Description, BarangayID AS Code
    FROM Build_File.dbo.tbCoBarangay WHERE BarangayID = @Criteria;
  ELSE
    SELECT Barangay AS Description, BarangayID AS Code
    FROM Build_File.dbo.tbCoBarangay
    WHERE @Wanted = N''
       OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(BarangayID, 0)) > 0
       OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(Barangay, 0)) > 0
    ORDER BY Barangay, BarangayID;
END
GO
DROP PROCEDURE IF EXISTS dbo.sp_AOPD_SearchChiefComplaint;
GO
CREATE PROCEDURE dbo.sp_AOPD_SearchChiefComplaint
  @Criteria nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  DECLARE @Wanted nvarchar(4000) = dbo.OPD_Folded(@Criteria, 0);
  SELECT ChiefComplaintID, ChiefComplaint, BodySystem
  FROM Build_File.dbo.tbCoChiefComplaint
  WHERE @Wanted = N''
     OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(ChiefComplaintID, 0)) > 0
     OR CHARINDEX(@Wanted COLLATE Latin1_General_BIN2, dbo.OPD_Folded(ChiefComplaint, 0)) > 0
  ORDER BY ChiefComplaint, ChiefComplaintID;
END
GO
