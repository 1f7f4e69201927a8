-- The databases that the desk's statements name, and LABORATORY, in which every connection begins and which stays
-- empty. A database that is there already is left as it is.
USE master;
GO
-- The collation of the database in which connections begin decides which characters a text between quotes can hold: with
-- one of UTF-8 all there are, and they need SQL Server 2019. Babelfish holds all in any case.
IF DB_ID(N'LABORATORY') IS NULL AND SERVERPROPERTY(N'babelfish') IS NULL
   AND CAST(SERVERPROPERTY(N'ProductMajorVersion') AS int) >= 15
  EXEC(N'CREATE DATABASE LABORATORY COLLATE Latin1_General_100_CI_AS_SC_UTF8;');
GO
IF DB_ID(N'LABORATORY') IS NULL CREATE DATABASE LABORATORY;
GO
IF DB_ID(N'Patient_Data') IS NULL CREATE DATABASE Patient_Data;
GO
IF DB_ID(N'Build_File') IS NULL CREATE DATABASE Build_File;
GO
IF DB_ID(N'billing') IS NULL CREATE DATABASE billing;
GO
-- A search of one desk waits for no save of another: it reads what stood there before. Babelfish never does
-- otherwise. It is set while there are no tables yet, because no one else may be in a database that it is set in.
IF SERVERPROPERTY(N'babelfish') IS NULL
BEGIN
  IF OBJECT_ID(N'Patient_Data.dbo.tbMaster', N'U') IS NULL
    EXEC(N'ALTER DATABASE Patient_Data SET READ_COMMITTED_SNAPSHOT ON;');
  IF OBJECT_ID(N'Build_File.dbo.tbCoDoctor', N'U') IS NULL
    EXEC(N'ALTER DATABASE Build_File SET READ_COMMITTED_SNAPSHOT ON;');
END
GO
