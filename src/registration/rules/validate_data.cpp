#include "registration/rules/validate_data.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "registration/record/amount_text.h"
#include "registration/record/civil_status.h"
#include "registration/rules/marks.h"
#include "registration/rules/messages.h"

namespace opd::registration {

namespace {

enum class Tone { Warning, Notification };

/// What must hold before a save, and what the clerk is told where it does not.
struct Rule {
    ui::Control& field;
    const char* fault;
    Tone tone;
    bool (*holds)(const Fields& fields);
};

bool hasAccount(const Fields& fields) {
    return !fields.personal.insured.selected() || !fields.personal.company.code.text().empty();
}

bool hasLastName(const Fields& fields) {
    return !fields.header.txtLastName.text().empty();
}

bool hasFirstName(const Fields& fields) {
    return !fields.header.txtFirstName.text().empty();
}

bool hasZipCode(const Fields& fields) {
    return !text::isBlank(fields.personal.txtZipCode.text());
}

bool hasNationality(const Fields& fields) {
    return !text::isBlank(fields.personal.txtNationality.text());
}

bool hasReligion(const Fields& fields) {
    return !text::isBlank(fields.personal.txtReligion.text());
}

bool hasSex(const Fields& fields) {
    return fields.header.male.selected() || fields.header.female.selected();
}

bool hasBirthDate(const Fields& fields) {
    return !fields.header.txtBirthDate.isBlank();
}

bool hasValidBirthDate(const Fields& fields) {
    return parseDate(fields.header.txtBirthDate.text()).has_value();
}

/// Where the hospital has no letters of authorization their frame is hidden, and nothing of it is stored.
bool hasValidAmount(const Fields& fields) {
    return !fields.additional.letterOfAuthorization.visible() ||
           parseAmount(fields.additional.txtLOAAmount.text()).has_value();
}

/// In the order in which the clerk is told.
std::vector<Rule> rulesOf(Fields& fields) {
    HeaderFields& header = fields.header;
    PersonalTab& personal = fields.personal;
    return {{personal.company.code, "Please enter Account Code", Tone::Warning, hasAccount},
            {header.txtLastName, "Invalid Patient Name", Tone::Warning, hasLastName},
            {header.txtFirstName, "Invalid Patient Name", Tone::Warning, hasFirstName},
            {personal.txtZipCode, "Please enter patient's zip code!", Tone::Warning, hasZipCode},
            {personal.txtNationality, "Please enter patient's nationality!", Tone::Warning, hasNationality},
            {personal.txtReligion, "Please enter patient's religion!", Tone::Warning, hasReligion},
            {header.male, "You must specify the out-patient's sex.", Tone::Notification, hasSex},
            {header.txtBirthDate, missingBirthDate, Tone::Notification, hasBirthDate},
            {header.txtBirthDate, "Invalid Birthdate", Tone::Notification, hasValidBirthDate},
            {fields.additional.txtLOAAmount, invalidAmount, Tone::Warning, hasValidAmount}};
}

bool refuse(ui::Desktop& desktop, const Rule& rule) {
    rule.field.setRefusal(rule.fault);
    const bool warning = rule.tone == Tone::Warning;
    desktop.ask({.text = rule.fault,
                 .caption = warning ? "Warning" : "Notification",
                 .icon = warning ? ui::Icon::Critical : ui::Icon::None});
    rule.field.window().setFocus(rule.field);
    return false;
}

void takeBackMarks(Fields& fields) {
    for (const Rule& rule : rulesOf(fields))
        if (rule.field.refusal() == rule.fault && rule.holds(fields))
            rule.field.setRefusal({});
}

} // namespace

bool ValidateData(ui::Desktop& desktop, Fields& fields, Record& record, std::string& AccountTypeCode) {
    takeBackMarks(fields);
    for (const Rule& rule : rulesOf(fields))
        if (!rule.holds(fields))
            return refuse(desktop, rule);
    record.SexCode = fields.header.male.selected() ? "M" : "F";
    record.ConsultationTypeCode = fields.consultation.withBill.selected() ? "W" : "";
    AccountTypeCode = fields.personal.notInsured.selected() ? "P" : "C";
    record.BirthDateText = text::trimmed(fields.header.txtBirthDate.text());
    record.CivilStatusCode = record.CivilStatusKept.sent(civilStatusCode(fields.personal.cboCivilStatus));
    return true;
}

bool lacksPatientClass(const Globals& globals, const ui::TextBox& patientClass) {
    return globals.IsAllowOPDPatientClass && text::isBlank(patientClass.text());
}

std::vector<ui::Control*> missingFields(Fields& fields, const Globals& globals) {
    std::vector<ui::Control*> missing;
    for (const Rule& rule : rulesOf(fields))
        if (!rule.holds(fields) && (missing.empty() || missing.back() != &rule.field))
            missing.push_back(&rule.field);
    if (ui::TextBox& patientClass = fields.additional.txtPatientClassID; lacksPatientClass(globals, patientClass))
        missing.push_back(&patientClass);
    return missing;
}

std::array<ui::OptionButton*, 4> checkedChoices(Fields& fields) {
    return {&fields.header.male, &fields.header.female, &fields.personal.insured, &fields.personal.notInsured};
}

void bindMarks(Fields& fields) {
    const auto takeBack = [&fields] { takeBackMarks(fields); };
    for (const Rule& rule : rulesOf(fields))
        rule.field.onChange.also(takeBack);
    for (ui::OptionButton* choice : checkedChoices(fields))
        choice->onClick.also(takeBack);
}

} // namespace opd::registration
