#include "registration/rules/patient_rules.h"

#include "base/clock/date_text.h"
#include "base/text/leading_number.h"
#include "base/text/text.h"
#include "data/procedures/checks.h"
#include "data/procedures/dates.h"
#include "registration/rules/messages.h"

namespace opd::registration {

namespace {

constexpr int youngest = 0; ///< years that an age may have
constexpr int oldest = 140;

} // namespace

PatientRules::PatientRules(Session& session, ui::Window& window, HeaderFields& header, ui::ComboBox& civilStatus)
    : m_session(session), m_header(header), m_civilStatus(civilStatus) {
    header.txtBirthDate.onValidate = [this, &window](bool& refused) {
        refused = !acceptBirthDate();
        if (refused)
            window.setFocus(m_header.txtBirthDate);
    };
    header.txtBirthDate.onLostFocus = [this, &window] {
        if (m_session.globals.gDuplicateLastName.empty())
            return;
        m_session.desktop.ask({.text = "ello"}); // as the hospitals know it
        window.unload();
    };
    header.txtAge.onValidate = [this](bool& refused) {
        refused = !acceptAge(m_header.txtAge);
        if (!refused)
            m_header.txtAge.setRefusal({});
    };
    civilStatus.onValidate = [this](bool& refused) { refused = !acceptCivilStatus(); };
}

int PatientRules::age() const {
    return static_cast<int>(text::leadingNumber(m_header.txtAge.text()));
}

bool PatientRules::refuse(ui::Control& field, const ui::Message& reason) {
    field.setRefusal(reason.text);
    m_session.desktop.ask(reason);
    return false;
}

/// Asks about the age at the field that decided it.
bool PatientRules::acceptAge(ui::Control& field) {
    const int years = age();
    if (years < youngest || years > oldest)
        return refuse(field, {.text = "Invalid Age..."});
    followAge(years);
    return true;
}

void PatientRules::followAge(int years) {
    if (years == 0)
        m_civilStatus.setText("Child");
    else if (years < 15)
        m_civilStatus.setText("Single");
}

void PatientRules::takeOver(const std::string& birthDate) {
    const std::optional<DateTime> born = parseDate(birthDate);
    const std::string admitted = dateText(m_header.dtpAdmDate.value());
    if (!born || born->date() > m_session.globals.gServerDate.date() || !data::IsDateInRange(birthDate, "", admitted))
        return;
    const int years = data::ComputeAge(m_session, birthDate, admitted);
    if (years < youngest || years > oldest)
        return;
    m_header.txtBirthDate.setText(birthDate);
    m_header.txtAge.setEnabled(false);
    m_header.txtAge.setText(std::to_string(years));
    followAge(years);
}

/// Remembers the patient when a new registration turns out to be one on file, unless the clerk has been led back to
/// that patient before and registers all the same: a twin, or a namesake.
void PatientRules::rememberDuplicate() {
    Globals& globals = m_session.globals;
    const std::string& lastName = m_header.txtLastName.text();
    const std::string& birthDate = m_header.txtBirthDate.text();
    if (m_header.txtHospNum.text() != "NEW" || text::isBlank(lastName))
        return;
    const std::string person = lastName + "|" + birthDate;
    if (globals.duplicateLedBackTo == person || !data::FindHospNumByNameBirthDate(m_session, lastName, birthDate))
        return;
    globals.duplicateLedBackTo = person;
    globals.gDuplicateLastName = lastName;
    globals.gDuplicateBirthDate = birthDate;
    globals.gDuplicateSex = m_header.male.selected() ? "M" : "F";
}

/// Why the civil status does not fit the age, or null.
const char* PatientRules::faultOfCivilStatus() const {
    const std::string& status = m_civilStatus.text();
    const int years = age();
    if (status == "Child" && years > 14)
        return "Child is not allowed for patient's above pediatric age...";
    if (status != "Child" && status != "Single" && years < 16)
        return "Selected Status is not allowed for ages below 16.";
    return nullptr;
}

bool PatientRules::acceptBirthDate() {
    const std::string& birthDate = m_header.txtBirthDate.text();
    m_header.txtAge.setEnabled(false);
    if (m_header.txtBirthDate.isBlank())
        return refuse(m_header.txtBirthDate, {.text = missingBirthDate, .caption = "Notification"});
    const std::string admitted = dateText(m_header.dtpAdmDate.value());
    if (!data::IsDateInRange(birthDate, "", admitted))
        return refuse(m_header.txtBirthDate, {.text = invalidDate});
    if (parseDate(birthDate)->date() > m_session.globals.gServerDate.date())
        return refuse(m_header.txtBirthDate, {.text = "Birthdate must not be greater than the date today!",
                                              .caption = "Notification",
                                              .icon = ui::Icon::Information});
    m_header.txtAge.setText(std::to_string(data::ComputeAge(m_session, birthDate, admitted)));
    // The age follows from the birth date and is not typed, so its own rule is asked here.
    if (!acceptAge(m_header.txtBirthDate))
        return false;
    m_header.txtBirthDate.setRefusal({});
    if (faultOfCivilStatus() == nullptr)
        m_civilStatus.setRefusal({});
    rememberDuplicate();
    return true;
}

bool PatientRules::acceptCivilStatus() {
    if (const char* const fault = faultOfCivilStatus()) {
        const bool child = m_civilStatus.text() == "Child";
        return refuse(m_civilStatus, {.text = fault, .icon = child ? ui::Icon::Critical : ui::Icon::Information});
    }
    m_civilStatus.setRefusal({});
    return true;
}

} // namespace opd::registration
