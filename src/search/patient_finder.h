#pragma once

#include "ado/recordset.h"
#include "search/master_search_fields.h"
#include "session/session.h"

#include <optional>
#include <string>

namespace opd::search {

/// Searches for patients by what stands in the search window's fields, and fills its grid.
class PatientFinder {
  public:
    enum class Outcome {
        Refused,          ///< nothing was searched for
        SecondTryRefused, ///< nobody matched exactly, and a birth date that cannot be kept the second try from running
        Found,
        NothingFound
    };

    PatientFinder(Session& session, MasterSearchFields& fields) : m_session(session), m_fields(fields) {}

    /// Chooses the search by the fields, checks its criteria and runs it; a search without a match runs the second try.
    /// The status line says what came of it. When criteria are refused the clerk was told, the field is marked and the
    /// focus stands on it. Throws ado::Error.
    Outcome search(ui::Window& window);

    /// Checks the birth date and shows the age. False when it was refused: the clerk was told and the field is marked.
    bool acceptBirthDate(ui::Window& window);

    /// Takes the marks back from the fields that were put right.
    void takeBackRefusals();

    /// The grid before any search.
    void showEmptyGrid();

    /// Says that nobody matches what stands in the fields.
    std::string nobodyFound() const;

    /// "M", "F" or empty, by the chosen option.
    std::string Sex() const;

  private:
    bool isByName() const;
    std::optional<int> age() const;
    std::string birthDateFault() const;
    bool acceptNameCriteria(ui::Window& window);
    Outcome Proc_PatientSubSearch(ui::Window& window);
    ado::Recordset run() const;
    long show(ado::Recordset patients);
    std::string BirthDate() const;

    Session& m_session;
    MasterSearchFields& m_fields;
};

} // namespace opd::search
