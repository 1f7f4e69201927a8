-- The next free file number is found at once. Some hospitals of the version before have the index already.
CREATE INDEX IF NOT EXISTS Patient_Data_tbMaster_FileNum
  ON Patient_Data_tbMaster (FileNum) WHERE FileNum IS NOT NULL;
