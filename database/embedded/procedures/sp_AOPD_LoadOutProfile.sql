-- parameters: IDNum text
SELECT LMP FROM Patient_Data_tbOutProfile WHERE IDNum = :IDNum;
