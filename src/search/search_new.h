#pragma once

#include "search/search_dialog.h"

namespace opd::search {

/// The code search dialog: lists what a statement of its caller answers, names first and codes second.
class frmSearchNew final : public SearchDialog {
  public:
    explicit frmSearchNew(Session& session);

    std::string Query;    ///< the statement, as its caller hands it over; every "##" in it stands for the criteria
    std::string Criteria; ///< must hold no single quote: the window then fails to load

    /// Of the confirmed row; to be read only when `Valid`.
    const std::string& Code() const { return m_code; }
    const std::string& Description() const { return m_description; }

  private:
    void load() override;
    void take(const ui::Grid& grid, int row) override;

    std::string m_code;
    std::string m_description;
};

} // namespace opd::search
