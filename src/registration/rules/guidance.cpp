#include "registration/rules/guidance.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "registration/rules/marks.h"
#include "registration/rules/validate_data.h"
#include "ui/spoken_names.h"

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

} // namespace

Guidance::Guidance(ui::Window& window, Fields& fields, const Record& record, const Globals& globals)
    : m_window(window), m_fields(fields), m_record(record), m_globals(globals) {
    window.hint = "Ctrl+Tab and Alt+1 to Alt+5 show the tabs, F1 lists the keys.";
    window.ownKeys = {{"Enter", "next field"}};
    window.stillToDo = [this] { return stateOfSave(); };
    alsoOn(fields.header.txtBirthDate.onChange, [this] { showAgeInMonths(m_fields.header, m_globals.gServerDate); });
    // What the window had to report ("nobody of that name", a complaint taken over) is read by the time the clerk goes
    // on writing, and would then hide what is still needed.
    std::vector<ui::Control*> everything;
    window.collect(everything);
    for (ui::Control* field : everything)
        if (field->kind() != ui::Kind::Tabs)
            alsoOn(field->onChange, [this] { m_window.setStatus({}); });
}

std::string Guidance::stateOfSave() const {
    const std::string stored = storedOutcome(m_record);
    const std::string needed = stillNeeded();
    return stored.empty() || needed.empty() ? stored + needed : stored + " " + needed;
}

/// What a save would ask for as the form stands, in the order of the screen.
std::string Guidance::stillNeeded() const {
    std::vector<const ui::Control*> missing = missingFields(m_fields);
    const AdditionalTab& additional = m_fields.additional;
    if (m_globals.IsAllowOPDPatientClass && text::isBlank(additional.patientClass.code.text()))
        missing.push_back(&additional.FraPatientClass);
    std::vector<ui::Control*> everything;
    m_window.collect(everything);
    std::string list;
    for (const ui::Control* control : everything)
        if (std::find(missing.begin(), missing.end(), control) != missing.end())
            list += (list.empty() ? "Still needed: " : ", ") + nameOf(*control);
    return list.empty() ? list : list + ".";
}

std::string storedOutcome(const Record& record) {
    if (!record.isWritten)
        return {};
    return "Stored: Hosp. # " + record.SaveHospNum + ", Case # " + record.SaveIDNum + "B.";
}

std::string registeredOutcome(const HeaderFields& header, const Record& record) {
    if (!record.isWritten)
        return {};
    const std::string given = text::trimmed(header.txtFirstName.text() + " " + header.txtMiddleName.text());
    return (record.isEdit() ? "Last updated: " : "Last registered: ") +
           text::upper(header.txtLastName.text() + ", " + given) + ", Hosp. # " + record.SaveHospNum + ", Case # " +
           record.SaveIDNum + "B";
}

void showAgeInMonths(HeaderFields& header, const DateTime& today) {
    header.lblAgeInMonths.setCaption(ageInMonths(header.txtBirthDate.text(), today));
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
