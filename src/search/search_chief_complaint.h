#pragma once

#include "search/search_dialog.h"

namespace opd::search {

/// The chief complaint dialog: searches the file of chief complaints as the clerk types.
class frmSearchChiefComplaint final : public SearchDialog {
  public:
    explicit frmSearchChiefComplaint(Session& session);

    std::string SearchMode; ///< nothing is searched unless it is "CHIEFCOMPLAINT"
    std::string SearchText; ///< searched for while the search box is empty

    /// Of the confirmed row; to be read only when `Valid`.
    const std::string& ResultCode() const { return m_code; }
    const std::string& Result() const { return m_text; }

  private:
    void load() override;
    void take(const ui::Grid& grid, int row) override;
    void search();

    std::string m_code;
    std::string m_text;
};

} // namespace opd::search
