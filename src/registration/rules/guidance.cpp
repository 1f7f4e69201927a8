#include "registration/rules/guidance.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "registration/rules/marks.h"
#include "registration/rules/validate_data.h"
#include "ui/spoken_names.h"
#include "ui/window.h"

#include <algorithm>

namespace opd::registration {

namespace {

std::string counted(long number, const char* unit) {
    return std::to_string(number) + " " + unit + (number == 1 ? "" : "s");
}

/// A field's label; an option is named by its group.
std::string nameOf(const ui::Control& field) {
    const bool isOption = field.kind() == ui::Kind::OptionButton;
    return ui::plainCaption(isOption ? field.container()->caption() : field.caption());
}

/// What a save would ask for as the form stands, in the order of the screen.
std::string stillNeeded(const FormContext& form) {
    std::vector<const ui::Control*> missing = missingFields(form);
    const AdditionalTab& additional = form.fields.additional;
    if (form.session.globals.IsAllowOPDPatientClass && text::isBlank(additional.txtPatientClassID.text()))
        missing.push_back(&additional.FraPatientClass);
    std::vector<ui::Control*> everything;
    form.window.collect(everything);
    std::string list;
    for (const ui::Control* control : everything)
        if (std::find(missing.begin(), missing.end(), control) != missing.end())
            list += (list.empty() ? "Still needed: " : ", ") + nameOf(*control);
    return list.empty() ? list : list + ".";
}

std::string stateOfSave(const FormContext& form) {
    const std::string stored = storedOutcome(form);
    const std::string needed = stillNeeded(form);
    return stored.empty() || needed.empty() ? stored + needed : stored + " " + needed;
}

/// What the window had to report ("nobody of that name", a complaint taken over) is read by the time the clerk goes on
/// writing, and would then hide what is still needed.
void bindStatus(FormContext& form) {
    std::vector<ui::Control*> everything;
    form.window.collect(everything);
    for (ui::Control* field : everything)
        if (field->kind() != ui::Kind::Tabs)
            alsoOn(field->onChange, [&form] { form.window.setStatus({}); });
    form.window.stillToDo = [&form] { return stateOfSave(form); };
}

/// A lookup button answers F4 in the code field before it.
void hintAtLookups(const ui::Window& window) {
    std::vector<ui::Control*> everything;
    window.collect(everything);
    for (std::size_t i = 1; i < everything.size(); ++i)
        if (ui::isLookup(*everything[i]))
            everything[i - 1]->hint = "F4 lists the codes.";
}

void bindHints(FormContext& form) {
    Fields& fields = form.fields;
    form.window.hint = "Ctrl+Tab and Alt+1 to Alt+5 show the tabs, F1 lists the keys.";
    form.window.ownKeys = {{"Enter", "next field"}};
    hintAtLookups(form.window);
    fields.header.txtBirthDate.hint = "Month, day and year, or F4 for the calendar.";
    fields.employment.mshDependents.hint = "F2 edits the cell, Delete takes the child away.";
    fields.employment.txtEntry.hint = "Enter takes the entry over, Esc gives it up.";
}

} // namespace

void bindGuidance(FormContext& form) {
    bindHints(form);
    alsoOn(form.fields.header.txtBirthDate.onChange, [&form] { showAgeInMonths(form); });
    bindStatus(form);
}

std::string storedOutcome(const FormContext& form) {
    const Record& record = form.record;
    if (!record.isWritten)
        return {};
    return "Stored: Hosp. # " + record.SaveHospNum + ", Case # " + record.SaveIDNum + "B.";
}

void showAgeInMonths(FormContext& form) {
    HeaderFields& header = form.fields.header;
    header.lblAgeInMonths.setCaption(ageInMonths(header.txtBirthDate.text(), form.session.globals.gServerDate));
}

std::string ageInMonths(const std::string& birthDate, const DateTime& day) {
    constexpr int infantMonths = 24;
    const std::optional<DateTime> born = parseDate(birthDate);
    if (!born || !day.isSet() || *born > day)
        return {};
    const int months = (day.year - born->year) * 12 + day.month - born->month - (day.day < born->day ? 1 : 0);
    if (months >= infantMonths)
        return {};
    return months == 0 ? counted(daysBetween(*born, day), "day") : counted(months, "month");
}

} // namespace opd::registration
