-- parameters: IDNum text
UPDATE Patient_Data_tbOutPatient SET ConsultationDate = now() WHERE IDNum = :IDNum;
