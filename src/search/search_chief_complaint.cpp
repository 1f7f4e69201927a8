#include "search/search_chief_complaint.h"

#include "data/rows.h"

#include <utility>

namespace opd::search {

frmSearchChiefComplaint::frmSearchChiefComplaint(Session& session)
    : SearchDialog(session, "frmSearchChiefComplaint", 2) {
    ui::TextBox& box = fields().txtSearchStr;
    box.onKeyPress = [this, base = box.onKeyPress](ui::KeyPress& press) {
        m_typed = press.code != ui::key::enter;
        base(press);
    };
    box.onChange = [this, &box] {
        if (!std::exchange(m_typed, false))
            return;
        SearchText = box.text();
        search();
    };
    fields().Timer1.onTick = [this] { fields().imgTitle.setFrame(1 - fields().imgTitle.frame()); };
}

void frmSearchChiefComplaint::load() {
    m_typed = false;
    setHeadings("Chief Complaints");
    search();
    fields().Timer1.start();
}

void frmSearchChiefComplaint::search() {
    if (SearchMode != "CHIEFCOMPLAINT")
        return;
    const std::string& typed = fields().txtSearchStr.text();
    show(data::openPlain(session(), data::Statement("PATIENT_DATA..sp_AOPD_SearchChiefComplaint '")
                                        .value(typed.empty() ? SearchText : typed)
                                        .text("'")),
         {200, 1000, 5000, 0});
}

void frmSearchChiefComplaint::take(const ui::Grid& grid, int row) {
    m_code = grid.cell(row, 1);
    m_text = grid.cell(row, 2);
}

} // namespace opd::search
