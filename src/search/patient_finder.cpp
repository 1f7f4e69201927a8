#include "search/patient_finder.h"

#include "base/text/text.h"
#include "data/grid_rows.h"
#include "data/procedures/dates.h"
#include "data/rows.h"
#include "search/statements.h"
#include "ui/window.h"

#include <algorithm>

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

constexpr int oldestAge = 140;

std::string patientsFound(int count) {
    if (count == 1)
        return "1 patient found. Enter opens the registration.";
    return std::to_string(count) + " patients found. The arrow keys choose, Enter opens the registration.";
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

std::optional<int> PatientFinder::age() const {
    // The upper bound is no date, and so none: as the hospitals know it.
    if (m_fields.txtBirthDate.isBlank() || !data::IsDateInRange(m_fields.txtBirthDate.text(), "", "True", true))
        return std::nullopt;
    return data::ComputeAge(m_session, m_fields.txtBirthDate.text(), dateText(m_session.clock.now()));
}

std::string PatientFinder::birthDateFault() const {
    if (m_fields.txtBirthDate.isBlank())
        return {};
    const std::optional<int> years = age();
    if (!years)
        return "This is no date. Month, day and year are wanted, such as 03/07/1980.";
    return *years >= 0 && *years <= oldestAge ? "" : "A patient is 0 to 140 years old.";
}

bool PatientFinder::acceptBirthDate(ui::Window& window) {
    m_fields.txtAge.setEnabled(false);
    const std::optional<int> years = age();
    const std::string fault = birthDateFault();
    if (years || fault.empty())
        m_fields.txtAge.setText(years ? std::to_string(*years) : "");
    if (!fault.empty()) {
        m_session.desktop.ask({.text = "Invalid date of birth...", .icon = ui::Icon::Critical});
        window.setFocus(m_fields.txtBirthDate);
        if (years)
            m_fields.txtBirthDate.clear();
    }
    m_fields.txtBirthDate.setRefusal(fault); // an emptied box is marked all the same
    return fault.empty();
}

void PatientFinder::takeBackRefusals() {
    if (!text::isBlank(m_fields.lastName.text()))
        m_fields.lastName.setRefusal({});
    if (!Sex().empty())
        for (ui::OptionButton* option : {&m_fields.male, &m_fields.female})
            option->setRefusal({});
    if (birthDateFault().empty())
        m_fields.txtBirthDate.setRefusal({});
}

bool PatientFinder::acceptNameCriteria(ui::Window& window) {
    const auto missing = [&](const char* message, std::initializer_list<ui::Control*> fields, const char* reason) {
        for (ui::Control* field : fields)
            field->setRefusal(reason);
        m_session.desktop.ask({.text = message, .icon = ui::Icon::Critical});
        window.setFocus(**fields.begin());
        return false;
    };
    if (text::isBlank(m_fields.lastName.text()))
        return missing("Please fill up the LastName!", {&m_fields.lastName}, "A search by name needs the last name.");
    if (Sex().empty())
        return missing("Please fill up the Gender!", {&m_fields.male, &m_fields.female},
                       "A search by name needs the sex.");
    if (!m_fields.txtBirthDate.isBlank())
        return true;
    const bool proceed = m_session.desktop.ask({.text = "Incomplete criteria..Do you want to proceed on searching?",
                                                .buttons = ui::Buttons::YesNo,
                                                .icon = ui::Icon::Question}) == ui::Answer::Yes;
    if (!proceed)
        window.setFocus(m_fields.txtBirthDate);
    return proceed;
}

bool PatientFinder::isByName() const {
    return text::isBlank(m_fields.txtHospNum.text()) &&
           std::all_of(m_fields.memberNumbers.begin(), m_fields.memberNumbers.end(),
                       [](const auto& number) { return text::isBlank(number.box->text()); });
}

PatientFinder::Outcome PatientFinder::search(ui::Window& window) {
    if (isByName() && !acceptNameCriteria(window))
        return Outcome::Refused;
    const ui::BusyPointer busy(m_session.desktop);
    if (show(run()) == 0)
        return Proc_PatientSubSearch(window);
    const bool withoutBirthDate = isByName() && BirthDate().empty() && !m_fields.txtBirthDate.isBlank();
    if (withoutBirthDate)
        m_fields.txtBirthDate.setRefusal(birthDateFault());
    window.setStatus((withoutBirthDate ? "What stands for the birth date is none and was not searched for: " : "") +
                     patientsFound(m_fields.gridPatientList.rowCount()));
    return Outcome::Found;
}

ado::Recordset PatientFinder::run() const {
    if (!text::isBlank(m_fields.txtHospNum.text()))
        return data::search(m_session, cardSearch(m_fields.txtHospNum.text()));
    for (const MasterSearchFields::MemberNumberBox& number : m_fields.memberNumbers)
        if (!number.box->text().empty())
            return data::search(m_session, memberSearch(number.box->text(), number.kind));
    return data::search(m_session, nameSearch(m_fields.lastName.text(), Sex(), BirthDate()));
}

PatientFinder::Outcome PatientFinder::Proc_PatientSubSearch(ui::Window& window) {
    if (!acceptBirthDate(window))
        return Outcome::SecondTryRefused;
    if (show(data::search(m_session, subSearch(m_fields.lastName.text(), Sex(), BirthDate()))) == 0) {
        window.setStatus(nobodyFound());
        return Outcome::NothingFound;
    }
    window.setStatus("Nobody matches exactly. By another sex or birth date: " +
                     patientsFound(m_fields.gridPatientList.rowCount()));
    return Outcome::Found;
}

std::string PatientFinder::nobodyFound() const {
    const auto nobodyHas = [](const char* kind, const ui::TextBox& box) {
        return std::string{"No patient has the "} + kind + " number " + text::trimmed(box.text()) + ".";
    };
    if (!text::isBlank(m_fields.txtHospNum.text()))
        return nobodyHas("card", m_fields.txtHospNum);
    for (const MasterSearchFields::MemberNumberBox& number : m_fields.memberNumbers)
        if (!text::isBlank(number.box->text()))
            return nobodyHas(number.name, *number.box);
    return "No patient on file is called " + text::trimmed(m_fields.lastName.text()) + ", of this sex and birth date.";
}

long PatientFinder::show(ado::Recordset patients) {
    // A provider that cannot count has rows, as far as anybody knows.
    const long count = patients.RecordCount();
    m_session.globals.gSelectedHospNum.clear();
    m_fields.gridPatientList.showLater(resultColumns(), data::laterRows(patients.taken()));
    return count;
}

std::string PatientFinder::BirthDate() const {
    const std::optional<DateTime> birthDate = parseDate(m_fields.txtBirthDate.text());
    return birthDate ? dottedDateText(*birthDate) : std::string{};
}

} // namespace opd::search
