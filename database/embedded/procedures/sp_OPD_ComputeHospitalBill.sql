-- database: billing
-- parameters: IDNum text
SELECT Amount AS HospitalBill FROM billing_tbBill WHERE IDNum = :IDNum;
