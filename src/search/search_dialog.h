#pragma once

#include "ado/recordset.h"
#include "search/lookup_fields.h"
#include "session/session.h"
#include "ui/window.h"

#include <string>

namespace opd::search {

/// A window with a search box over a list, of which the clerk picks one row. Column 0 of its grid is a narrow fixed
/// one; a result begins in column 1. One dialog serves every search of a form; each showing starts without a result.
class SearchDialog {
  public:
    virtual ~SearchDialog() = default;
    SearchDialog(const SearchDialog&) = delete;
    SearchDialog& operator=(const SearchDialog&) = delete;

    ui::Window& window() { return m_window; }
    SearchDialogFields& fields() { return m_fields; }

    std::string SearchCaption; ///< set by the caller
    std::string PresentCode;   ///< set by the caller: the list opens on the row of this code, when it has one

    /// Shows the window and returns when it is closed. Throws ado::Error when its list cannot be loaded.
    void showModal();

    /// True when the clerk confirmed a row in the last showing.
    bool Valid() const { return m_valid; }

  protected:
    SearchDialog(Session& session, ui::Literal name, int shownColumn);

    const Session& session() const { return m_session; }

    /// Fills the grid when the window is loaded.
    virtual void load() = 0;

    /// Keeps the values of the confirmed row.
    virtual void take(const ui::Grid& grid, int row) = 0;

    /// What a result was searched for, and which of the grid's columns are the code and the name of a row.
    struct Wanted {
        std::string text;
        std::size_t codeColumn;
        std::size_t nameColumn;
    };

    /// Shows a result, the best match first and its columns as wide as given from column 0 on. Offers Select when there
    /// is a row.
    void show(ado::Recordset rows, const std::vector<int>& widths, const Wanted& wanted);

    /// True while the search box is written by the window itself, which is no change by the clerk.
    bool writesBox() const { return m_writesBox || !m_window.isOpen(); }

    void setHeadings(const std::string& caption);

  private:
    static std::vector<std::size_t> bestFirst(const ado::ResultSet& result, const Wanted& wanted);
    int rowOfPresentCode(const ado::ResultSet& result, const std::vector<std::size_t>& order,
                         const Wanted& wanted) const;
    void bind();
    void select();

    Session& m_session;
    ui::Window m_window;
    SearchDialogFields m_fields{m_window};
    bool m_fills = false;     ///< the list is being filled: its current row is nobody's choice
    bool m_writesBox = false; ///< the search box shows the row walked to
    int m_shownColumn;        ///< of the current row, which the search box shows
    bool m_valid = false;
};

} // namespace opd::search
