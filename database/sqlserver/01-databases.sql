-- The databases that the desk's statements name, and LABORATORY, in which every connection begins and which stays
-- empty. A database that is there already is left as it is.
USE master;
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
