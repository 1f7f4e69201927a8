#pragma once

#include "platform/ado/recordset.h"
#include "platform/ui/window.h"
#include "search/lookup_fields.h"
#include "session/session.h"

#include <string>

namespace opd::search {

/// A window with a search box over a list, of which the clerk picks one row. Column 0 of its grid is a narrow fixed one;
/// a result begins in column 1. One dialog serves every search of a form; each showing starts without a result.
class SearchDialog {
  public:
    virtual ~SearchDialog() = default;
    SearchDialog(const SearchDialog&) = delete;
    SearchDialog& operator=(const SearchDialog&) = delete;

    ui::Window& window() { return m_window; }
    SearchDialogFields& fields() { return m_fields; }

    std::string SearchCaption; ///< set by the caller

    /// Shows the window and returns when it is closed. Throws ado::Error when its list cannot be loaded.
    void showModal();

    /// True when the clerk confirmed a row in the last showing.
    bool Valid() const { return m_valid; }

  protected:
    SearchDialog(Session& session, const char* name, int shownColumn);

    const Session& session() const { return m_session; }

    /// Fills the grid when the window is loaded.
    virtual void load() = 0;

    /// Keeps the values of the confirmed row.
    virtual void take(const ui::Grid& grid, int row) = 0;

    /// Shows a result, its columns as wide as given from column 0 on, and offers Select when there is a row.
    void show(const ado::Recordset& rows, const std::vector<int>& widths);

    void setHeadings(const std::string& caption);

  private:
    void bind();
    void select();

    Session& m_session;
    ui::Window m_window;
    SearchDialogFields m_fields{m_window};
    int m_shownColumn; ///< of the current row, which the search box shows
    bool m_valid = false;
};

} // namespace opd::search
