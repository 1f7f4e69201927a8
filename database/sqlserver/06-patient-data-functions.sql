-- What the procedures of Patient_Data share, and the trigger that keeps how patients are looked for.
USE Patient_Data;
GO
-- A text as it is compared when somebody looks for it: in capitals, letters without their accents, one kind of
-- apostrophe; with @Bare = 1 also without blanks, hyphens, full stops and apostrophes. The same stands in Build_File.
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
-- The moment of a text as the desk sends it, whatever the language of the session: MM/dd/yyyy, perhaps with a time of
-- day, or yyyy.MM.dd. A blank text is no moment where it may be (@MayBeBlank = 1), and never the year 1900; any other
-- text that is no date is an error.
DROP FUNCTION IF EXISTS dbo.OPD_Moment;
GO
CREATE FUNCTION dbo.OPD_Moment (@Text nvarchar(4000), @MayBeBlank bit)
RETURNS datetime
AS
BEGIN
  DECLARE @Moment nvarchar(4000) = LTRIM(RTRIM(@Text));
  IF @Moment = N'' AND @MayBeBlank = 1
    RETURN NULL;
  IF @Moment = N''
    SET @Moment = N'blank'; -- which is no date
  ELSE IF SUBSTRING(@Moment, 3, 1) = N'/' AND SUBSTRING(@Moment, 6, 1) = N'/'
    SET @Moment = SUBSTRING(@Moment, 7, 4) + SUBSTRING(@Moment, 1, 2) + SUBSTRING(@Moment, 4, 2)
                + SUBSTRING(@Moment, 11, 30);
  ELSE IF SUBSTRING(@Moment, 5, 1) = N'.' AND SUBSTRING(@Moment, 8, 1) = N'.'
    SET @Moment = SUBSTRING(@Moment, 1, 4) + SUBSTRING(@Moment, 6, 2) + SUBSTRING(@Moment, 9, 2)
                + SUBSTRING(@Moment, 11, 30);
  RETURN CAST(CAST(@Moment AS datetime2(0)) AS datetime);
END
GO
-- Whole years from a birth date to now, as the desk counts them: days divided by 365.25.
DROP FUNCTION IF EXISTS dbo.OPD_Age;
GO
CREATE FUNCTION dbo.OPD_Age (@BirthDate datetime)
RETURNS int
AS
BEGIN
  RETURN CAST(FLOOR(DATEDIFF(day, @BirthDate, GETDATE()) / 365.25) AS int);
END
GO
-- Street and barangay in one line.
DROP FUNCTION IF EXISTS dbo.OPD_Address;
GO
CREATE FUNCTION dbo.OPD_Address (@HouseStreet nvarchar(4000), @Barangay nvarchar(4000))
RETURNS nvarchar(4000)
AS
BEGIN
  DECLARE @Street nvarchar(4000) = LTRIM(RTRIM(ISNULL(@HouseStreet, N'')));
  DECLARE @Quarter nvarchar(4000) = LTRIM(RTRIM(ISNULL(@Barangay, N'')));
  RETURN @Street + CASE WHEN @Street = N'' OR @Quarter = N'' THEN N'' ELSE N', ' END + @Quarter;
END
GO
-- The ways in which what is typed behind the comma of a name can be read: words of the first name, then perhaps some of
-- the middle name. "MARIA S" is the beginning of MARIA LUZ and of SANTOS, or of MARIA SOLEDAD and of any middle name.
DROP FUNCTION IF EXISTS dbo.OPD_GivenNames;
GO
CREATE FUNCTION dbo.OPD_GivenNames (@Typed nvarchar(4000))
RETURNS @Reading TABLE (FirstName nvarchar(4000) NOT NULL, MiddleName nvarchar(4000) NOT NULL)
AS
BEGIN
  DECLARE @Words nvarchar(4000) = LTRIM(REPLACE(@Typed COLLATE Latin1_General_BIN2, N',', N' '));
  DECLARE @Length int = LEN(@Words);
  DECLARE @End int = 0;
  WHILE @End < @Length
  BEGIN
    SET @End = CHARINDEX(N' ' COLLATE Latin1_General_BIN2, @Words, @End + 1) - 1;
    IF @End < 0
      SET @End = @Length;
    INSERT INTO @Reading (FirstName, MiddleName)
    VALUES (dbo.OPD_Folded(LEFT(@Words, @End), 1), dbo.OPD_Folded(SUBSTRING(@Words, @End + 1, 4000), 1));
    SET @End = @End + 1; -- the blank
  END
  RETURN;
END
GO
-- Keeps how a patient is looked for in step with the names and numbers, whichever program writes them.
DROP TRIGGER IF EXISTS dbo.tbMaster_KeepSearch;
GO
CREATE TRIGGER dbo.tbMaster_KeepSearch ON dbo.tbMaster AFTER INSERT, UPDATE
AS
BEGIN
  SET NOCOUNT ON;
  -- What is in step already is not written again, which also ends the trigger's own calls of itself.
  IF EXISTS (
    SELECT 1 FROM inserted AS i
    WHERE i.SearchName <> dbo.OPD_Folded(i.LastName, 1) COLLATE Latin1_General_BIN2
       OR i.SearchFirst <> dbo.OPD_Folded(i.FirstName, 1) COLLATE Latin1_General_BIN2
       OR i.SearchMiddle <> dbo.OPD_Folded(i.MiddleName, 1) COLLATE Latin1_General_BIN2
       OR i.SearchPHIC <> dbo.OPD_Folded(i.PHICNum, 1) COLLATE Latin1_General_BIN2
       OR i.SearchGSIS <> dbo.OPD_Folded(i.GSISNum, 1) COLLATE Latin1_General_BIN2
       OR i.SearchSSS <> dbo.OPD_Folded(i.SSSNum, 1) COLLATE Latin1_General_BIN2)
    UPDATE dbo.tbMaster
    SET SearchName = dbo.OPD_Folded(LastName, 1),
        SearchFirst = dbo.OPD_Folded(FirstName, 1),
        SearchMiddle = dbo.OPD_Folded(MiddleName, 1),
        SearchPHIC = dbo.OPD_Folded(PHICNum, 1),
        SearchGSIS = dbo.OPD_Folded(GSISNum, 1),
        SearchSSS = dbo.OPD_Folded(SSSNum, 1)
    WHERE HospNum IN (SELECT i.HospNum FROM inserted AS i);
END
GO
