#include "registration/subrecords/dependents.h"

#include "ado/connection.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "registration/statements/changes.h"
#include "registration/statements/queries.h"
#include "registration/subrecords/dependent_columns.h"

namespace opd::registration {

namespace {

/// A birth date as the editor takes it; what is no date stands as it is.
std::string birthDateText(const ado::Value& stored) {
    const std::optional<DateTime> date = parseDate(stored.asText());
    return date ? dateText(*date) : stored.asText();
}

} // namespace

void LoadDependents(const Session& session, ui::Grid& grid, LoadedRows& loaded, const std::string& hospNum) {
    const ado::Recordset& stored = loaded.ask(session, statements::dependents(hospNum));
    if (stored.EndOfFile())
        return;
    std::vector<ui::Grid::Row> rows;
    for (const std::vector<ado::Value>& row : stored.all().rows)
        rows.push_back({row.at(nameColumn).asText(), birthDateText(row.at(birthDateColumn))});
    grid.show(grid.columns(), std::move(rows));
    grid.addRow();
}

void SaveDependents(const Session& session, ui::Grid& grid, const std::string& hospNum) {
    grid.setCurrentRow(1);
    ado::Transaction transaction(session.connection());
    data::execute(session, statements::deleteDependents(hospNum));
    for (int row = grid.currentRow(); row <= grid.rowCount(); ++row) {
        const std::string name = grid.cell(row, nameColumn);
        const std::string birthDate = grid.cell(row, birthDateColumn);
        if (!text::isBlank(name) && !text::isBlank(birthDate))
            data::execute(session, statements::saveDependent(hospNum, name, birthDate));
    }
    transaction.commit();
}

} // namespace opd::registration
