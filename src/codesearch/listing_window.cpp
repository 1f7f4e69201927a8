#include "codesearch/listing_window.h"

#include "base/text/folding.h"
#include "base/text/ranking.h"
#include "base/text/text.h"

#include <algorithm>
#include <numeric>

namespace opd::codesearch {

namespace {

std::vector<ui::Grid::Column> columnsOf(const Listing& listing) {
    std::vector<ui::Grid::Column> columns;
    for (const Listing::Field& field : listing.fields)
        columns.push_back({field.title, field.width, false});
    return columns;
}

} // namespace

ListingWindow::ListingWindow(ui::Desktop& desktop, const Listing& listing, ado::ResultSet rows,
                             const std::string& company)
    : m_desktop(desktop), m_listing(listing), m_rows(std::move(rows)), m_window("frmCodeSearch") {
    m_window.setCaption(listing.title);
    m_fields.lblTitle.setCaption(listing.title);
    m_fields.lblCompany.setCaption(company);
    bind();
}

void ListingWindow::bind() {
    m_window.onFailure = [this](const std::exception& failure) {
        m_desktop.ask({.text = failure.what(), .icon = ui::Icon::Critical});
    };
    m_window.cancelButton = &m_fields.cmdCancel;
    m_fields.cmdCancel.onClick = [this] { m_window.unload(); };
    m_fields.cmdSelect.onClick = [this] { select(); };
    m_fields.grdListing.onDoubleClick = [this] { select(); };
    const auto selectOnEnter = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            select();
        else
            press.code = text::upper(press.code);
    };
    m_fields.grdListing.onKeyPress = selectOnEnter;
    m_fields.txtSearch.onKeyPress = selectOnEnter;
    m_fields.grdListing.typesInto = [this](char32_t) { return &m_fields.txtSearch; };
    m_fields.txtSearch.onChange = [this] { filter(); };
    m_fields.txtSearch.onArrowDown = [this] { m_window.setFocus(m_fields.grdListing); };
    m_fields.grdListing.onRowChange = [this] { rowChanged(); };
    m_fields.grdListing.onGotFocus = [this] {
        if (m_fields.grdListing.currentRow() == 0)
            m_fields.grdListing.setCurrentRow(1);
    };
}

std::vector<std::size_t> ListingWindow::matches(const std::string& text) const {
    const std::string wanted = text::trimmed(text::folded(text));
    std::vector<std::size_t> found(m_rows.rows.size());
    std::iota(found.begin(), found.end(), std::size_t{0});
    if (wanted.empty())
        return found;
    text::SearchedRow row(0, 1);
    std::string room;
    const auto read = [&](std::size_t place) -> const text::SearchedRow& {
        row.clear();
        for (const ado::Value& value : m_rows.rows[place])
            row.add(value.asView(room));
        return row;
    };
    std::erase_if(found, [&](std::size_t place) { return !read(place).holds(wanted); });
    return text::ranked(wanted, std::move(found), read);
}

bool ListingWindow::hasMatch(const std::string& text) const {
    return !matches(text).empty();
}

std::string ListingWindow::cell(std::size_t place, std::size_t column) const {
    return m_rows.rows[place].at(column).asText();
}

void ListingWindow::filter() {
    m_shown = matches(m_fields.txtSearch.text());
    m_fields.grdListing.showLater(columnsOf(m_listing), {static_cast<int>(m_shown.size()), [this](int row, int column) {
                                                             return cell(m_shown[static_cast<std::size_t>(row - 1)],
                                                                         static_cast<std::size_t>(column));
                                                         }});
    m_fields.lblCount.setCaption(std::to_string(m_shown.size()) + " of " + std::to_string(m_rows.rows.size()));
    rowChanged();
}

void ListingWindow::rowChanged() {
    const ui::Grid& grid = m_fields.grdListing;
    m_fields.cmdSelect.setEnabled(grid.currentRow() != 0);
    if (grid.rowCount() == 0)
        m_window.setStatus("No record holds this text.");
    else if (grid.currentRow() == 0)
        m_window.setStatus("Type a part of the code or name, or go into the list with the Down arrow.");
    else
        m_window.setStatus("Enter takes the marked record, Esc leaves the field as it was.");
}

int ListingWindow::rowOf(const std::string& code) const {
    const auto found = std::find_if(m_shown.begin(), m_shown.end(), [&](std::size_t place) {
        return text::equalsIgnoringCase(text::trimmed(cell(place, 0)), code);
    });
    return found == m_shown.end() ? 0 : static_cast<int>(found - m_shown.begin()) + 1;
}

std::optional<Row> ListingWindow::pick(const std::string& text, const std::string& present) {
    m_picked.reset();
    const std::string wanted = text::trimmed(text);
    m_fields.txtSearch.setText(wanted);
    filter();
    if (wanted.empty())
        m_fields.grdListing.setCurrentRow(rowOf(text::trimmed(present)));
    m_window.load();
    m_window.setFocus(m_fields.txtSearch);
    m_desktop.showModal(m_window);
    return m_picked;
}

void ListingWindow::select() {
    const int current = m_fields.grdListing.currentRow();
    if (current == 0)
        return;
    Row row;
    for (std::size_t i = 0; i < m_listing.fields.size(); ++i)
        row[m_listing.fields[i].member] = m_fields.grdListing.cell(current, static_cast<int>(i));
    m_picked = std::move(row);
    m_window.unload();
}

} // namespace opd::codesearch
