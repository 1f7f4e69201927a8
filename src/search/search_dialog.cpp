#include "search/search_dialog.h"

#include "base/text/folding.h"
#include "base/text/ranking.h"
#include "base/text/text.h"
#include "data/rows.h"

#include <algorithm>

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

SearchDialog::SearchDialog(Session& session, const char* name, int shownColumn)
    : m_session(session), m_window(name, ""), m_shownColumn(shownColumn) {
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

void SearchDialog::show(const ado::Recordset& rows, const std::vector<int>& widths, const Wanted& wanted) {
    const ado::ResultSet& result = rows.all();
    std::vector<ui::Grid::Column> columns{{"", widths.front(), false}};
    for (std::size_t i = 0; i < result.columns.size(); ++i)
        columns.push_back({result.columns[i], i + 1 < widths.size() ? widths[i + 1] : 0, false});
    std::vector<ui::Grid::Row> cells;
    cells.reserve(result.rows.size());
    for (const std::vector<ado::Value>& row : result.rows) {
        ui::Grid::Row& texts = cells.emplace_back(1);
        for (const ado::Value& value : row)
            texts.push_back(value.asText());
    }
    cells = bestFirst(std::move(cells), wanted);
    const auto present = std::find_if(cells.begin(), cells.end(), [&](const ui::Grid::Row& row) {
        return !PresentCode.empty() && row.at(wanted.codeColumn) == PresentCode;
    });
    const int current = present == cells.end() ? 1 : static_cast<int>(present - cells.begin()) + 1;
    m_fields.cmdSelect.setEnabled(!cells.empty());
    m_window.setStatus(recordsFound(cells.size(), !text::isBlank(wanted.text)));
    m_fills = true;
    m_fields.grdDispWindow.show(std::move(columns), std::move(cells));
    m_fields.grdDispWindow.setCurrentRow(current);
    m_fills = false;
}

std::vector<ui::Grid::Row> SearchDialog::bestFirst(std::vector<ui::Grid::Row> rows, const Wanted& wanted) {
    std::vector<text::SearchedRow> searched;
    std::vector<std::size_t> places;
    for (const ui::Grid::Row& row : rows) {
        places.push_back(places.size());
        searched.emplace_back(std::vector{row.at(wanted.codeColumn), row.at(wanted.nameColumn)}, 0, 1);
    }
    std::vector<ui::Grid::Row> ordered;
    for (const std::size_t place : text::ranked(text::trimmed(text::folded(wanted.text)), searched, places))
        ordered.push_back(std::move(rows[place]));
    return ordered;
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
