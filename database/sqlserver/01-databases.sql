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
