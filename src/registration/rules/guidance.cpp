#include "registration/rules/guidance.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "registration/rules/marks.h"
#include "registration/rules/validate_data.h"
#include "registration/subrecords/dependent_columns.h"
#include "ui/spoken_names.h"

#include <algorithm>

namespace opd::registration {

namespace {

std::string counted(long number, const char* unit) {
    return std::to_string(number) + " " + unit + (number == 1 ? "" : "s");
}

/// A field's label; an option, and a field without one, is named by its group.
std::string nameOf(const ui::Control& field) {
    const bool ofGroup = field.kind() == ui::Kind::OptionButton || field.caption().empty();
    return ui::plainCaption(ofGroup ? field.container()->caption() : field.caption());
}

} // namespace

Guidance::Guidance(ui::Window& window, Fields& fields, const Record& record, const Globals& globals)
    : m_window(window), m_fields(fields), m_record(record), m_globals(globals) {
    window.hint = "Ctrl+Tab and Alt+1 to Alt+5 show the tabs, F1 lists the keys.";
    window.ownKeys = {{"Enter", "next field"},
                      {"F6", "next field that is still needed", [this] { return nextMissing(); }}};
    window.stillToDo = [this] { return stateOfSave(); };
    fields.header.txtBirthDate.onChange.also([this] { showAgeInMonths(m_fields.header, m_globals.gServerDate); });
    for (ui::OptionButton* choice : checkedChoices(fields))
        choice->onClick.also([this] { markNeeded(); });
}

// What the window had to report ("nobody of that name", a complaint taken over) is read by the time the clerk goes on
// writing, and would then hide what is still needed.
void Guidance::follow(const ui::Control& changed) {
    if (!m_follows || changed.kind() == ui::Kind::Tabs)
        return;
    m_window.setStatus({});
    markNeeded();
}

std::string Guidance::stateOfSave() const {
    std::string state;
    for (const std::string& part : {storedOutcome(m_record), stillNeeded(), leftOutDependents()})
        state += state.empty() || part.empty() ? part : " " + part;
    return state;
}

/// How many fields a save would be refused for as the form stands, and the one it would be refused for first.
std::string Guidance::stillNeeded() const {
    const std::vector<ui::Control*> missing = missingFields(m_fields, m_globals);
    if (missing.empty())
        return {};
    std::string next = nameOf(*missing.front());
    if (!next.ends_with('.')) // some captions are cut short
        next += '.';
    if (missing.size() == 1)
        return "1 field is still needed: " + next;
    return counted(static_cast<long>(missing.size()), "field") + " are still needed, next: " + next;
}

/// A dependent is stored with both name and birth date, or not at all.
std::string Guidance::leftOutDependents() const {
    const ui::Grid& grid = m_fields.employment.mshDependents;
    long leftOut = 0;
    for (int row = 1; row <= grid.rowCount(); ++row)
        leftOut += text::isBlank(grid.cell(row, nameColumn)) != text::isBlank(grid.cell(row, birthDateColumn)) ? 1 : 0;
    return leftOut == 0 ? "" : counted(leftOut, "dependent") + " without name or birth date will not be stored.";
}

void Guidance::markNeeded() {
    m_follows = true;
    std::vector<ui::Control*> missing = missingFields(m_fields, m_globals);
    for (ui::Control* field : m_needed)
        field->setNeeded(std::find(missing.begin(), missing.end(), field) != missing.end());
    for (ui::Control* field : missing)
        field->setNeeded(true);
    m_needed = std::move(missing);
}

/// The next field behind the one with the focus, round the end of the form, that a save would ask for; the button that
/// saves when there is none.
ui::Control* Guidance::nextMissing() const {
    std::vector<ui::Control*> order = m_window.everything();
    const auto here = std::find(order.begin(), order.end(), m_window.focus());
    if (here != order.end())
        std::rotate(order.begin(), here + 1, order.end());
    const std::vector<ui::Control*> wanted = missingFields(m_fields, m_globals);
    for (ui::Control* control : order)
        if (std::find(wanted.begin(), wanted.end(), control) != wanted.end())
            return control;
    return &m_fields.buttons.cmdSave;
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
