-- parameters: HospNum text, IDNum text, Unused1 text, Unused2 text, Unused3 text, Unused4 text, Unused5 text, Unused6 text, Unused7 text, Unused8 text, LMP date?, Mode text
INSERT OR REPLACE INTO Patient_Data_tbOutProfile (IDNum, HospNum, LMP) VALUES (:IDNum, :HospNum, :LMP);
