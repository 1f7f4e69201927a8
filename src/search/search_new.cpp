#include "search/search_new.h"

#include "base/text/text.h"

namespace opd::search {

frmSearchNew::frmSearchNew(Session& session) : SearchDialog(session, "frmSearchNew", 1) {
    window().onKeyPress = [this](ui::KeyPress& press) {
        const ui::Control* const focus = window().focus();
        if (focus == nullptr || (focus->kind() != ui::Kind::TextBox && focus->kind() != ui::Kind::Button))
            return;
        if (press.code == ui::key::enter)
            window().sendTab();
        else if (press.code == U'\'')
            press.drop();
        else
            press.code = text::upper(press.code);
    };
}

void frmSearchNew::load() {
    fields().txtSearchStr.setText("");
    ado::Recordset rows;
    rows.Open(ado::Statement::fromOutside(Query, "##", "", [this](const std::string&) { return Criteria; }),
              session().connection());
    show(rows, {200, 4150, 2000}, {Criteria, 2, 1});
    setHeadings(SearchCaption);
    fields().lblHospital.setCaption(session().globals.gCompanyName);
}

void frmSearchNew::take(const ui::Grid& grid, int row) {
    m_description = grid.cell(row, 1);
    m_code = grid.cell(row, 2);
}

} // namespace opd::search
