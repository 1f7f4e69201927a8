#include "adapters/sqlite/audited_save.h"

namespace opd::adapters::sqlite {

namespace {

// One row. LastID is the last change that was noted before the save began.
constexpr const char* memory = R"(
CREATE TEMP TABLE AuditedSave (
  One INTEGER PRIMARY KEY CHECK (One = 1),
  HospNum TEXT COLLATE OPD,
  IDNum TEXT COLLATE OPD,
  IsNew INTEGER,
  LastID INTEGER,
  UserID TEXT
);
)";

} // namespace

void rememberAuditedSave(Database& database) {
    database.run(memory);
}

} // namespace opd::adapters::sqlite
