-- parameters: AccountNum text
SELECT AccountNum FROM Build_File_tbCoCompany WHERE AccountNum = :AccountNum AND Class IN ('P', 'H');
