#include "registration/rules/patient_rules.h"

#include "data/leading_number.h"
#include "data/procedures/checks.h"
#include "data/procedures/dates.h"
#include "platform/clock/date_text.h"
#include "platform/text/text.h"
#include "platform/ui/window.h"

namespace opd::registration {

namespace {

int ageOf(const Fields& fields) {
    return static_cast<int>(data::leadingNumber(fields.header.txtAge.text()));
}

bool refuse(FormContext& form, const ui::Message& reason) {
    form.session.desktop.ask(reason);
    return false;
}

bool acceptAge(FormContext& form) {
    const int age = ageOf(form.fields);
    if (age < 0 || age > 140)
        return refuse(form, {.text = "Invalid Age..."});
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

bool acceptBirthDate(FormContext& form) {
    HeaderFields& header = form.fields.header;
    const std::string& birthDate = header.txtBirthDate.text();
    header.txtAge.setEnabled(false);
    if (header.txtBirthDate.isBlank())
        return refuse(form, {.text = "Please enter the patient's Birthdate", .caption = "Notification"});
    const std::string admitted = dateText(header.dtpAdmDate.value());
    if (!data::IsDateInRange(birthDate, "", admitted))
        return refuse(form, {.text = "Invalid date..."});
    if (parseDate(birthDate)->date() > form.session.globals.gServerDate.date())
        return refuse(form, {.text = "Birthdate must not be greater than the date today!",
                             .caption = "Notification",
                             .icon = ui::Icon::Information});
    header.txtAge.setText(std::to_string(data::ComputeAge(form.session, birthDate, admitted)));
    // The age follows from the birth date and is not typed, so its own rule is asked here.
    if (!acceptAge(form))
        return false;
    rememberDuplicate(form);
    return true;
}

bool acceptCivilStatus(FormContext& form) {
    const std::string& status = form.fields.personal.cboCivilStatus.text();
    const int age = ageOf(form.fields);
    if (status == "Child" && age > 14)
        return refuse(
            form, {.text = "Child is not allowed for patient's above pediatric age...", .icon = ui::Icon::Critical});
    if (status != "Child" && status != "Single" && age < 16)
        return refuse(form,
                      {.text = "Selected Status is not allowed for ages below 16.", .icon = ui::Icon::Information});
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
    header.txtAge.onValidate = [&form](bool& refused) { refused = !acceptAge(form); };
    form.fields.personal.cboCivilStatus.onValidate = [&form](bool& refused) { refused = !acceptCivilStatus(form); };
}

} // namespace opd::registration
