#include "search/search_chief_complaint.h"

#include "data/rows.h"
#include "search/statements.h"

namespace opd::search {

frmSearchChiefComplaint::frmSearchChiefComplaint(Session& session)
    : SearchDialog(session, "frmSearchChiefComplaint", 2) {
    ui::TextBox& box = fields().txtSearchStr;
    box.onChange = [this, &box] {
        if (writesBox())
            return;
        SearchText = box.text();
        search();
    };
    fields().Timer1.onTick = [this] { fields().imgTitle.setFrame(1 - fields().imgTitle.frame()); };
}

void frmSearchChiefComplaint::load() {
    setHeadings("Chief Complaints");
    search();
    fields().Timer1.start();
}

void frmSearchChiefComplaint::search() {
    if (SearchMode != "CHIEFCOMPLAINT")
        return;
    const std::string& typed = fields().txtSearchStr.text();
    const std::string wanted = typed.empty() ? SearchText : typed;
    show(data::openPlain(session(), complaintSearch(wanted)), {200, 1000, 5000, 0}, {wanted, 1, 2});
}

void frmSearchChiefComplaint::take(const ui::Grid& grid, int row) {
    m_code = grid.cell(row, 1);
    m_text = grid.cell(row, 2);
}

} // namespace opd::search
