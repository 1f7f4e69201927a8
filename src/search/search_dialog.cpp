#include "search/search_dialog.h"

#include "base/text/folding.h"
#include "base/text/ranking.h"
#include "base/text/text.h"
#include "data/grid_rows.h"
#include "data/rows.h"

#include <algorithm>
#include <numeric>

namespace opd::search {

namespace {

std::string recordsFound(std::size_t count, bool areRanked) {
    if (count == 0)
        return "No record holds this text.";
    if (count == 1)
        return "1 record.";
    return std::to_string(count) + (areRanked ? " records, the best match first." : " records.");
}

} // namespace

SearchDialog::SearchDialog(Session& session, ui::Literal name, int shownColumn)
    : m_session(session), m_window(name), m_shownColumn(shownColumn) {
    m_window.onLoad = [this] {
        m_valid = false;
        load();
    };
    m_window.onFailure = [this](const std::exception& failure) { data::reportFailure(m_session, failure); };
    m_window.cancelButton = &m_fields.cmdCancel;
    bind();
}

void SearchDialog::bind() {
    ui::TextBox& box = m_fields.txtSearchStr;
    ui::Grid& grid = m_fields.grdDispWindow;
    box.onArrowDown = [this, &grid] { m_window.setFocus(grid); };
    const auto selectOnEnter = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter && m_fields.cmdSelect.enabled())
            select();
    };
    box.onKeyPress = [selectOnEnter](ui::KeyPress& press) {
        selectOnEnter(press);
        press.code = text::upper(press.code);
    };
    grid.onKeyPress = selectOnEnter;
    grid.typesInto = [&box](char32_t) { return &box; };
    grid.onDoubleClick = [this] {
        if (m_fields.cmdSelect.enabled())
            select();
    };
    grid.onRowChange = [this, &box, &grid] {
        // While the list is being filled the box keeps what was typed; later it shows the row walked to.
        if (m_fills || m_window.focus() != &grid)
            return;
        m_writesBox = true;
        box.setText(grid.cell(grid.currentRow(), m_shownColumn));
        m_writesBox = false;
    };
    m_fields.cmdSelect.onClick = [this] { select(); };
    m_fields.cmdCancel.onClick = [this] { m_window.unload(); };
}

void SearchDialog::showModal() {
    m_window.load();
    m_window.setFocus(m_fields.txtSearchStr);
    m_session.desktop.showModal(m_window);
}

void SearchDialog::show(ado::Recordset rows, const std::vector<int>& widths, const Wanted& wanted) {
    ado::ResultSet result = rows.taken();
    std::vector<ui::Grid::Column> columns{{"", widths.front(), false}};
    for (std::size_t i = 0; i < result.columns.size(); ++i)
        columns.push_back({result.columns[i], i + 1 < widths.size() ? widths[i + 1] : 0, false});
    std::vector<std::size_t> order = bestFirst(result, wanted);
    const int current = rowOfPresentCode(result, order, wanted);
    m_fields.cmdSelect.setEnabled(!order.empty());
    m_window.setStatus(recordsFound(order.size(), !text::isBlank(wanted.text)));
    m_fills = true;
    m_fields.grdDispWindow.showLater(std::move(columns), data::laterRows(std::move(result), 1, std::move(order)));
    m_fields.grdDispWindow.setCurrentRow(current);
    m_fills = false;
}

std::vector<std::size_t> SearchDialog::bestFirst(const ado::ResultSet& result, const Wanted& wanted) {
    std::vector<std::size_t> places(result.rows.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    text::SearchedRow row(wanted.codeColumn - 1, wanted.nameColumn - 1);
    std::string room;
    return text::ranked(text::trimmed(text::folded(wanted.text)), std::move(places),
                        [&](std::size_t place) -> const text::SearchedRow& {
                            row.clear();
                            for (const ado::Value& value : result.rows[place])
                                row.add(value.asView(room));
                            return row;
                        });
}

/// The row to begin on: that of the present code, or the first one.
int SearchDialog::rowOfPresentCode(const ado::ResultSet& result, const std::vector<std::size_t>& order,
                                   const Wanted& wanted) const {
    if (PresentCode.empty())
        return 1;
    const auto present = std::find_if(order.begin(), order.end(), [&](std::size_t place) {
        return result.rows[place].at(wanted.codeColumn - 1).asText() == PresentCode;
    });
    return present == order.end() ? 1 : static_cast<int>(present - order.begin()) + 1;
}

void SearchDialog::setHeadings(const std::string& caption) {
    m_window.setCaption(caption);
    m_fields.lblTitle.setCaption(caption);
    m_fields.lblSTitle.setCaption(caption);
}

void SearchDialog::select() {
    const ui::Grid& grid = m_fields.grdDispWindow;
    take(grid, grid.currentRow());
    m_valid = true;
    m_window.unload();
}

} // namespace opd::search
