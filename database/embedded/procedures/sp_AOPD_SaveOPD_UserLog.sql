-- parameters: IDNum text, UserID text, Action text
INSERT INTO Patient_Data_tbOPDUserLog (IDNum, UserID, Action, LoggedAt) VALUES (:IDNum, :UserID, :Action, now());
-- include: audit_user.sqlpart
