#include "registration/rules/validate_data.h"

#include "platform/clock/date_text.h"
#include "platform/text/text.h"
#include "platform/ui/window.h"
#include "registration/civil_status.h"

namespace opd::registration {

namespace {

bool warn(FormContext& form, const char* text, ui::Control& mistake) {
    form.session.desktop.ask({.text = text, .caption = "Warning", .icon = ui::Icon::Critical});
    form.window.setFocus(mistake);
    return false;
}

bool notify(FormContext& form, const char* text, ui::Control& mistake) {
    form.session.desktop.ask({.text = text, .caption = "Notification"});
    form.window.setFocus(mistake);
    return false;
}

bool hasNames(FormContext& form) {
    HeaderFields& header = form.fields.header;
    for (ui::TextBox* name : {&header.txtLastName, &header.txtFirstName})
        if (name->text().empty())
            return warn(form, "Invalid Patient Name", *name);
    return true;
}

bool hasCodes(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    if (text::isBlank(personal.txtZipCode.text()))
        return warn(form, "Please enter patient's zip code!", personal.txtZipCode);
    if (text::isBlank(personal.txtNationality.text()))
        return warn(form, "Please enter patient's nationality!", personal.txtNationality);
    if (text::isBlank(personal.txtReligion.text()))
        return warn(form, "Please enter patient's religion!", personal.txtReligion);
    return true;
}

bool hasSex(FormContext& form) {
    const HeaderFields& header = form.fields.header;
    if (!header.male.selected() && !header.female.selected())
        return notify(form, "You must specify the out-patient's sex.", header.male);
    form.record.SexCode = header.male.selected() ? "M" : "F";
    return true;
}

bool hasBirthDate(FormContext& form) {
    ui::MaskedBox& birthDate = form.fields.header.txtBirthDate;
    if (birthDate.isBlank())
        return notify(form, "Please enter the patient's Birthdate", birthDate);
    if (!parseDate(birthDate.text()))
        return notify(form, "Invalid Birthdate", birthDate);
    return true;
}

} // namespace

bool ValidateData(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    if (personal.insured.selected() && personal.accountNumber.text().empty())
        return warn(form, "Please enter Account Code", personal.accountNumber);
    if (!hasNames(form) || !hasCodes(form) || !hasSex(form))
        return false;
    form.record.ConsultationTypeCode = form.fields.consultation.withBill.selected() ? "W" : "";
    form.session.globals.AccountTypeCode = personal.notInsured.selected() ? "P" : "C";
    if (!hasBirthDate(form))
        return false;
    form.record.BirthDateText = text::trimmed(form.fields.header.txtBirthDate.text());
    form.record.CivilStatusCode = civilStatusCode(personal.cboCivilStatus.text());
    return true;
}

} // namespace opd::registration
