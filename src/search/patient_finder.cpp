#include "search/patient_finder.h"

#include "data/procedures/dates.h"
#include "data/rows.h"
#include "platform/text/text.h"
#include "platform/ui/window.h"
#include "search/patient_statements.h"

namespace opd::search {

namespace {

// The leading empty caption is the grid's own fixed column; a result begins behind it.
constexpr const char* emptyFormat =
    "|<Last Name |<FirstName |<Middle Name |<Hosp. No. |<Birth Date |<Age |<Address |<Account No.";
constexpr const char* resultFormat = "|<Last Name |<FirstName |<Middle Name |<Hosp. No. |<Birth Date |<Age |<Address ";

/// The columns of a result, of which the age is hidden.
std::vector<ui::Grid::Column> resultColumns() {
    std::vector<ui::Grid::Column> columns = ui::gridColumns(resultFormat, {0, 2000, 2000, 2000, 1000, 1100, 0, 6400});
    columns.erase(columns.begin());
    return columns;
}

ui::Grid::Row cellsOf(const std::vector<ado::Value>& values) {
    ui::Grid::Row cells;
    cells.reserve(values.size());
    for (const ado::Value& value : values)
        cells.push_back(value.asText());
    return cells;
}

} // namespace

void PatientFinder::showEmptyGrid() {
    std::vector<ui::Grid::Column> columns = ui::gridColumns(emptyFormat, {0, 2000, 2000, 2000, 1000, 1100, 0, 6405, 0});
    m_fields.gridPatientList.show(std::move(columns), {});
}

std::string PatientFinder::Sex() const {
    if (m_fields.male.selected())
        return "M";
    return m_fields.female.selected() ? "F" : "";
}

bool PatientFinder::acceptBirthDate(ui::Window& window) {
    const auto invalid = [&] {
        m_session.desktop.ask({.text = "Invalid date of birth...", .icon = ui::Icon::Critical});
        window.setFocus(m_fields.txtBirthDate);
        return false;
    };
    m_fields.txtAge.setEnabled(false);
    const std::string& birthDate = m_fields.txtBirthDate.text();
    if (!data::IsDateInRange(birthDate, "", "True", true))
        return invalid();
    if (m_fields.txtBirthDate.isBlank()) {
        m_fields.txtAge.setText("");
        return true;
    }
    const int age = data::ComputeAge(m_session, birthDate, dateText(m_session.clock.now()));
    m_fields.txtAge.setText(std::to_string(age));
    if (age >= 0 && age <= 140)
        return true;
    invalid();
    m_fields.txtBirthDate.clear();
    return false;
}

bool PatientFinder::acceptNameCriteria(ui::Window& window) {
    const auto missing = [&](const char* message, ui::Control& field) {
        m_session.desktop.ask({.text = message, .icon = ui::Icon::Critical});
        window.setFocus(field);
        return false;
    };
    if (text::isBlank(m_fields.lastName.text()))
        return missing("Please fill up the LastName!", m_fields.lastName);
    if (Sex().empty())
        return missing("Please fill up the Gender!", m_fields.male);
    if (!m_fields.txtBirthDate.isBlank())
        return acceptBirthDate(window);
    const bool proceed = m_session.desktop.ask({.text = "Incomplete criteria..Do you want to proceed on searching?",
                                                .buttons = ui::Buttons::YesNo,
                                                .icon = ui::Icon::Question}) == ui::Answer::Yes;
    if (!proceed)
        window.setFocus(m_fields.txtBirthDate);
    return proceed;
}

PatientFinder::Outcome PatientFinder::search(ui::Window& window) {
    const bool byName = text::isBlank(m_fields.txtHospNum.text()) && text::isBlank(m_fields.txtPHICNum.text()) &&
                        text::isBlank(m_fields.txtSSSNum.text()) && text::isBlank(m_fields.txtGSISNum.text());
    if (byName && !acceptNameCriteria(window))
        return Outcome::Refused;
    const ui::BusyPointer busy(m_session.desktop);
    const ado::Recordset patients = run();
    // A provider that cannot count has rows, as far as anybody knows.
    if (patients.RecordCount() == 0)
        return Proc_PatientSubSearch(window);
    show(patients.all());
    return Outcome::Found;
}

ado::Recordset PatientFinder::run() const {
    if (!text::isBlank(m_fields.txtHospNum.text()))
        return data::execute(m_session, cardSearch(m_fields.txtHospNum.text()));
    if (!m_fields.txtPHICNum.text().empty())
        return data::execute(m_session, memberSearch(m_fields.txtPHICNum.text(), MemberNumber::PhilHealth));
    if (!m_fields.txtGSISNum.text().empty())
        return data::execute(m_session, memberSearch(m_fields.txtGSISNum.text(), MemberNumber::Gsis));
    if (!m_fields.txtSSSNum.text().empty())
        return data::execute(m_session, memberSearch(m_fields.txtSSSNum.text(), MemberNumber::Sss));
    return data::execute(m_session, nameSearch(m_fields.lastName.text(), Sex(), BirthDate()));
}

PatientFinder::Outcome PatientFinder::Proc_PatientSubSearch(ui::Window& window) {
    if (!acceptBirthDate(window))
        return Outcome::Refused;
    const ado::Recordset patients = data::execute(m_session, subSearch(m_fields.lastName.text(), Sex(), BirthDate()));
    show(patients.all());
    return patients.RecordCount() == 0 ? Outcome::NothingFound : Outcome::Found;
}

void PatientFinder::show(const ado::ResultSet& patients) {
    std::vector<ui::Grid::Row> rows;
    rows.reserve(patients.rows.size());
    for (const std::vector<ado::Value>& patient : patients.rows)
        rows.push_back(cellsOf(patient));
    m_session.globals.gSelectedHospNum.clear();
    m_fields.gridPatientList.show(resultColumns(), std::move(rows));
}

std::string PatientFinder::BirthDate() const {
    const std::optional<DateTime> birthDate = parseDate(m_fields.txtBirthDate.text());
    return birthDate ? dottedDateText(*birthDate) : std::string{};
}

} // namespace opd::search
