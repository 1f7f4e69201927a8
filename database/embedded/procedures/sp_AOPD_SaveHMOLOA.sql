-- parameters: IDNum text, ApprovalNo text, LOAAmount number, LOADateInformed date?, LOAReceiver text, LOADateReceived date?, LOAStatus text, LOARemarks text
INSERT OR REPLACE INTO Patient_Data_tbOpdHMOLOA
VALUES (:IDNum, :ApprovalNo, :LOAAmount, :LOADateInformed, :LOAReceiver, :LOADateReceived, :LOAStatus, :LOARemarks);
