#pragma once

#include "ado/recordset.h"
#include "base/text/ranking.h"

#include <string>
#include <vector>

namespace opd::visits {

/// A visit as the list shows it.
struct Visit {
    std::string time; ///< of day, "02:05 PM"
    std::string opdNumber;
    std::string patient; ///< "LAST, FIRST MIDDLE"
    std::string hospNum;
    std::string service;
    std::string doctor;
    std::string user;
    std::string state; ///< "open", "revoked", "billed", "discharged" or "consultation ended"
};

/// The visits of a day in the order in which they were read, and which of them a clerk wants to see.
class VisitList {
  public:
    /// Takes over the answer to `statements::visitsOf`.
    void read(const ado::Recordset& rows);

    const std::vector<Visit>& all() const { return m_visits; }

    /// The visits that hold the text in one of their cells, whatever its letter case and accents. With a `user`, those
    /// of that user alone.
    std::vector<const Visit*> holding(const std::string& text, const std::string& user) const;

  private:
    std::vector<Visit> m_visits;
    std::vector<text::SearchedRow> m_searched;
};

/// The cells of a visit, in the order of the list's columns.
std::vector<std::string> cellsOf(const Visit& visit);

} // namespace opd::visits
