#include "registration/rules/patient_rules.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/leading_number.h"
#include "data/procedures/checks.h"
#include "data/procedures/dates.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

int ageOf(const Fields& fields) {
    return static_cast<int>(data::leadingNumber(fields.header.txtAge.text()));
}

bool refuse(FormContext& form, ui::Control& field, const ui::Message& reason) {
    field.setRefusal(reason.text);
    form.session.desktop.ask(reason);
    return false;
}

/// Asks about the age at the field that decided it.
bool acceptAge(FormContext& form, ui::Control& field) {
    const int age = ageOf(form.fields);
    if (age < 0 || age > 140)
        return refuse(form, field, {.text = "Invalid Age..."});
    if (age == 0)
        form.fields.personal.cboCivilStatus.setText("Child");
    else if (age < 15)
        form.fields.personal.cboCivilStatus.setText("Single");
    return true;
}

/// Remembers the patient when a new registration turns out to be one on file, unless the clerk has been led back to
/// that patient before and registers all the same: a twin, or a namesake.
void rememberDuplicate(FormContext& form) {
    const HeaderFields& header = form.fields.header;
    Globals& globals = form.session.globals;
    const std::string& lastName = header.txtLastName.text();
    const std::string& birthDate = header.txtBirthDate.text();
    if (header.txtHospNum.text() != "NEW" || text::isBlank(lastName))
        return;
    const std::string person = lastName + "|" + birthDate;
    if (globals.duplicateLedBackTo == person || !data::FindHospNumByNameBirthDate(form.session, lastName, birthDate))
        return;
    globals.duplicateLedBackTo = person;
    globals.gDuplicateLastName = lastName;
    globals.gDuplicateBirthDate = birthDate;
    globals.gDuplicateSex = header.male.selected() ? "M" : "F";
}

/// Why the civil status does not fit the age, or null.
const char* faultOfCivilStatus(const Fields& fields) {
    const std::string& status = fields.personal.cboCivilStatus.text();
    const int age = ageOf(fields);
    if (status == "Child" && age > 14)
        return "Child is not allowed for patient's above pediatric age...";
    if (status != "Child" && status != "Single" && age < 16)
        return "Selected Status is not allowed for ages below 16.";
    return nullptr;
}

bool acceptBirthDate(FormContext& form) {
    HeaderFields& header = form.fields.header;
    const std::string& birthDate = header.txtBirthDate.text();
    header.txtAge.setEnabled(false);
    if (header.txtBirthDate.isBlank())
        return refuse(form, header.txtBirthDate,
                      {.text = "Please enter the patient's Birthdate", .caption = "Notification"});
    const std::string admitted = dateText(header.dtpAdmDate.value());
    if (!data::IsDateInRange(birthDate, "", admitted))
        return refuse(form, header.txtBirthDate, {.text = "Invalid date..."});
    if (parseDate(birthDate)->date() > form.session.globals.gServerDate.date())
        return refuse(form, header.txtBirthDate,
                      {.text = "Birthdate must not be greater than the date today!",
                       .caption = "Notification",
                       .icon = ui::Icon::Information});
    header.txtAge.setText(std::to_string(data::ComputeAge(form.session, birthDate, admitted)));
    // The age follows from the birth date and is not typed, so its own rule is asked here.
    if (!acceptAge(form, header.txtBirthDate))
        return false;
    header.txtBirthDate.setRefusal({});
    if (faultOfCivilStatus(form.fields) == nullptr)
        form.fields.personal.cboCivilStatus.setRefusal({});
    rememberDuplicate(form);
    return true;
}

bool acceptCivilStatus(FormContext& form) {
    ui::ComboBox& status = form.fields.personal.cboCivilStatus;
    if (const char* const fault = faultOfCivilStatus(form.fields)) {
        const bool child = status.text() == "Child";
        return refuse(form, status, {.text = fault, .icon = child ? ui::Icon::Critical : ui::Icon::Information});
    }
    status.setRefusal({});
    return true;
}

} // namespace

void bindPatientRules(FormContext& form) {
    HeaderFields& header = form.fields.header;
    header.txtBirthDate.onValidate = [&form](bool& refused) {
        refused = !acceptBirthDate(form);
        if (refused)
            form.window.setFocus(form.fields.header.txtBirthDate);
    };
    header.txtBirthDate.onLostFocus = [&form] {
        if (form.session.globals.gDuplicateLastName.empty())
            return;
        form.session.desktop.ask({.text = "ello"});
        form.window.unload();
    };
    header.txtAge.onValidate = [&form, &header](bool& refused) {
        refused = !acceptAge(form, header.txtAge);
        if (!refused)
            header.txtAge.setRefusal({});
    };
    form.fields.personal.cboCivilStatus.onValidate = [&form](bool& refused) { refused = !acceptCivilStatus(form); };
}

} // namespace opd::registration
