-- parameters: ServiceID text
SELECT ServiceID, Service FROM Build_File_tbCoService WHERE ServiceID = :ServiceID;
