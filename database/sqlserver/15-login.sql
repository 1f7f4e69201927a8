-- The login of the desks: "opd", with the rights of the role opd_desk and no others. Write its password between the
-- quotes below, run this script once, and take the password out again; without one, no login is made. Desks whose
-- users log on by themselves (Kerberos) need none: give their logins a user in the four databases and make that a
-- member of opd_desk.
USE master;
GO
DECLARE @Password nvarchar(100) = N'';
IF EXISTS (SELECT 1 FROM sys.server_principals WHERE name = N'opd')
  PRINT N'The login opd is there already.';
ELSE IF @Password = N''
  PRINT N'No login was made: 15-login.sql holds no password for it.';
ELSE
BEGIN
  DECLARE @Statement nvarchar(400) = N'CREATE LOGIN opd WITH PASSWORD = N''' + REPLACE(@Password, N'''', N'''''')
                                   + N''', DEFAULT_DATABASE = LABORATORY;';
  EXEC(@Statement);
  -- The desk writes months before days. Babelfish knows no other way, and no such option either.
  IF SERVERPROPERTY(N'babelfish') IS NULL
    EXEC(N'ALTER LOGIN opd WITH DEFAULT_LANGUAGE = us_english;');
END
GO
USE LABORATORY;
GO
IF EXISTS (SELECT 1 FROM sys.server_principals WHERE name = N'opd')
   AND NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd')
  CREATE USER opd FOR LOGIN opd;
GO
IF EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd') ALTER ROLE opd_desk ADD MEMBER opd;
GO
USE Build_File;
GO
IF EXISTS (SELECT 1 FROM sys.server_principals WHERE name = N'opd')
   AND NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd')
  CREATE USER opd FOR LOGIN opd;
GO
IF EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd') ALTER ROLE opd_desk ADD MEMBER opd;
GO
USE billing;
GO
IF EXISTS (SELECT 1 FROM sys.server_principals WHERE name = N'opd')
   AND NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd')
  CREATE USER opd FOR LOGIN opd;
GO
IF EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd') ALTER ROLE opd_desk ADD MEMBER opd;
GO
USE Patient_Data;
GO
IF EXISTS (SELECT 1 FROM sys.server_principals WHERE name = N'opd')
   AND NOT EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd')
  CREATE USER opd FOR LOGIN opd;
GO
IF EXISTS (SELECT 1 FROM sys.database_principals WHERE name = N'opd') ALTER ROLE opd_desk ADD MEMBER opd;
GO
