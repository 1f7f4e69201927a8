#include "registration/subrecords/dependents.h"

#include "ado/connection.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "registration/subrecords/dependent_columns.h"

namespace opd::registration {

namespace {

using ado::Statement;

/// A birth date as the editor takes it; what is no date stands as it is.
std::string birthDateText(const ado::Value& stored) {
    const std::optional<DateTime> date = parseDate(stored.asText());
    return date ? dateText(*date) : stored.asText();
}

Statement saveDependent(const std::string& hospNum, const std::string& name, const std::string& birthDate) {
    return Statement("Patient_Data..sp_Adm_SaveDependents  ")
        .bareWord(hospNum)
        .text(", '")
        .value(name)
        .text("', '")
        .value(birthDate)
        .text("' ");
}

} // namespace

void LoadDependents(FormContext& form) {
    const ado::Recordset stored = data::openClient(
        form.session, Statement("Patient_Data..sp_Adm_LoadDependents '").value(form.record.HospNum).text("'"));
    if (stored.EndOfFile())
        return;
    std::vector<ui::Grid::Row> rows;
    for (const std::vector<ado::Value>& row : stored.all().rows)
        rows.push_back({row.at(nameColumn).asText(), birthDateText(row.at(birthDateColumn))});
    ui::Grid& grid = form.fields.employment.mshDependents;
    grid.show(grid.columns(), std::move(rows));
    grid.addRow();
}

void SaveDependents(FormContext& form) {
    ui::Grid& grid = form.fields.employment.mshDependents;
    const std::string& hospNum = form.record.SaveHospNum;
    grid.setCurrentRow(1);
    ado::Transaction transaction(form.session.connection());
    data::execute(form.session,
                  Statement("Delete Patient_Data..tbMasterDependent where SeqNum = '").value(hospNum).text("'"));
    for (int row = grid.currentRow(); row <= grid.rowCount(); ++row) {
        const std::string name = grid.cell(row, nameColumn);
        const std::string birthDate = grid.cell(row, birthDateColumn);
        if (!text::isBlank(name) && !text::isBlank(birthDate))
            data::execute(form.session, saveDependent(hospNum, name, birthDate));
    }
    transaction.commit();
}

} // namespace opd::registration
