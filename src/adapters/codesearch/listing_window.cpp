#include "adapters/codesearch/listing_window.h"

#include "platform/text/text.h"

namespace opd::codesearch {

namespace {

/// Parts the texts of a row, so that a search never matches over the border of two of them.
constexpr char border = '\n';

std::string searchedText(const std::vector<std::string>& row) {
    std::string searched;
    for (const std::string& cell : row)
        searched += text::upper(cell) + border;
    return searched;
}

std::vector<ui::Grid::Column> columnsOf(const Listing& listing) {
    std::vector<ui::Grid::Column> columns;
    for (const Listing::Field& field : listing.fields)
        columns.push_back({field.title, field.width, false});
    return columns;
}

} // namespace

ListingWindow::ListingWindow(ui::Desktop& desktop, const Listing& listing, std::vector<std::vector<std::string>> rows,
                             const std::string& company)
    : m_desktop(desktop), m_listing(listing), m_rows(std::move(rows)), m_window("frmCodeSearch", listing.title) {
    m_searched.reserve(m_rows.size());
    for (const std::vector<std::string>& row : m_rows)
        m_searched.push_back(searchedText(row));
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
}

std::vector<ui::Grid::Row> ListingWindow::matches(const std::string& text) const {
    const std::string wanted = text::upper(text::trimmed(text));
    std::vector<ui::Grid::Row> found;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        if (m_searched[i].find(wanted) != std::string::npos)
            found.push_back(m_rows[i]);
    return found;
}

bool ListingWindow::hasMatch(const std::string& text) const {
    return !matches(text).empty();
}

void ListingWindow::filter() {
    std::vector<ui::Grid::Row> found = matches(m_fields.txtSearch.text());
    m_fields.lblCount.setCaption(std::to_string(found.size()) + " of " + std::to_string(m_rows.size()));
    m_fields.cmdSelect.setEnabled(!found.empty());
    m_fields.grdListing.show(columnsOf(m_listing), std::move(found));
}

std::optional<Row> ListingWindow::pick(const std::string& text) {
    m_picked.reset();
    m_fields.txtSearch.setText(text::trimmed(text));
    filter();
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
