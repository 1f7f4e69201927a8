#include "adapters/sqlite/drawn_numbers.h"

namespace opd::adapters::sqlite {

namespace {

constexpr const char* guards = R"(
CREATE TEMP TABLE DrawnNumber (Number TEXT COLLATE OPD PRIMARY KEY) WITHOUT ROWID;

CREATE TEMP TRIGGER NewPatient AFTER INSERT ON main.Patient_Data_tbMaster
BEGIN DELETE FROM DrawnNumber WHERE Number = NEW.HospNum; END;

CREATE TEMP TRIGGER NewVisit AFTER INSERT ON main.Patient_Data_tbOutPatient
BEGIN DELETE FROM DrawnNumber WHERE Number = NEW.IDNum; END;

CREATE TEMP TRIGGER OtherPatient BEFORE UPDATE ON main.Patient_Data_tbMaster
WHEN OLD.HospNum IN (SELECT Number FROM DrawnNumber)
BEGIN SELECT RAISE(ABORT, 'The new hospital number was given to another patient meanwhile.'); END;

CREATE TEMP TRIGGER OtherVisit BEFORE UPDATE ON main.Patient_Data_tbOutPatient
WHEN OLD.IDNum IN (SELECT Number FROM DrawnNumber)
BEGIN SELECT RAISE(ABORT, 'The new OPD number was given to another visit meanwhile.'); END;
)";

} // namespace

void guardDrawnNumbers(Database& database) {
    database.run(guards);
}

} // namespace opd::adapters::sqlite
