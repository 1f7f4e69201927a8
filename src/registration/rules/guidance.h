#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/globals.h"
#include "ui/window.h"

#include <string>
#include <vector>

namespace opd::registration {

/// What a save still needs, marked at the fields and counted in the status line, and there which keys help at the field
/// that has the focus. It adds to the handlers that stand when it is made.
class Guidance {
  public:
    Guidance(ui::Window& window, Fields& fields, const Record& record, const Globals& globals);
    Guidance(const Guidance&) = delete;
    Guidance& operator=(const Guidance&) = delete;

    /// Marks the fields that a save still needs, and no others.
    void markNeeded();

    /// The same for each change of a field, once they were marked for the first time.
    void follow(const ui::Control& changed);

  private:
    std::string stateOfSave() const;
    std::string stillNeeded() const;
    std::string leftOutDependents() const;
    ui::Control* nextMissing() const;

    ui::Window& m_window;
    Fields& m_fields;
    const Record& m_record;
    const Globals& m_globals;
    std::vector<ui::Control*> m_needed; ///< the fields that are marked
    bool m_follows = false;
};

/// What of the form's registration stands in the database: its numbers. Empty while nothing does.
std::string storedOutcome(const Record& record);

/// The same with the patient's name, for the clerk to read when the form is gone.
std::string registeredOutcome(const HeaderFields& header, const Record& record);

/// Brings the age in months beside the years up to date; the change of the birth date does so by itself.
void showAgeInMonths(HeaderFields& header, const DateTime& today);

/// How old an infant is beside the whole years: "11 days", "1 month", "17 months". Empty from two years on, and while
/// either date is none.
std::string ageInMonths(const std::string& birthDate, const DateTime& day);

} // namespace opd::registration
