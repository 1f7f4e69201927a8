-- What a visit has cost so far.
USE billing;
GO
IF OBJECT_ID(N'dbo.tbBill', N'U') IS NULL
CREATE TABLE dbo.tbBill (
  IDNum nvarchar(20) NOT NULL PRIMARY KEY,
  Amount decimal(18, 2) NOT NULL
);
GO
DROP PROCEDURE IF EXISTS dbo.sp_OPD_ComputeHospitalBill;
GO
CREATE PROCEDURE dbo.sp_OPD_ComputeHospitalBill
  @IDNum nvarchar(4000)
AS
BEGIN
  SET NOCOUNT ON;
  SELECT Amount AS HospitalBill FROM dbo.tbBill WHERE IDNum = @IDNum;
END
GO
