#include "visits/todays_visits.h"

#include "base/text/text.h"
#include "data/procedures/dates.h"
#include "data/rows.h"
#include "reports/data_sheet.h"
#include "visits/statements.h"

#include <algorithm>
#include <utility>

namespace opd::visits {

namespace {

std::vector<ui::Grid::Column> columns() {
    return ui::gridColumns("<Time|<Case #|<Patient|<Hosp. #|<Service|<Doctor|<User|<State",
                           {1100, 1500, 3600, 1200, 2400, 2600, 1400, 1800});
}

std::string countOf(std::size_t listed, std::size_t all) {
    const std::string total = std::to_string(all) + (all == 1 ? " visit today" : " visits today");
    return listed == all ? total : std::to_string(listed) + " of " + total;
}

} // namespace

frmTodaysVisits::frmTodaysVisits(Session& session, search::RegistrationOpener& registration)
    : m_session(session), m_registration(registration) {
    m_window.onLoad = [this] { load(); };
    m_window.onFailure = [this](const std::exception& failure) { data::reportFailure(m_session, failure); };
    m_window.cancelButton = &m_fields.cmdClose;
    m_window.defaultButton = &m_fields.cmdOpen;
    bind();
    bindActions();
}

void frmTodaysVisits::bind() {
    ui::TextBox& box = m_fields.txtSearch;
    ui::Grid& grid = m_fields.grdVisits;
    grid.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            open();
    };
    grid.typesInto = [&box](char32_t character) { return character > ui::key::space ? &box : nullptr; };
    grid.onDoubleClick = [this] { open(); };
    box.onKeyPress = [](ui::KeyPress& press) { press.code = text::upper(press.code); };
    const auto narrow = [this] { list(current() != nullptr ? current()->opdNumber : std::string{}); };
    box.onChange = narrow;
    box.onArrowDown = [this, &grid] { m_window.setFocus(grid); };
    m_fields.chkMine.onClick = narrow;
    m_fields.cmdOpen.onClick = [this] { open(); };
    m_fields.cmdRefresh.onClick = [this] { refresh(); };
    m_fields.cmdClose.onClick = [this] { m_window.unload(); };
}

void frmTodaysVisits::bindActions() {
    const auto onKey = [](std::function<void()> deed) {
        return [deed = std::move(deed)]() -> ui::Control* {
            deed();
            return nullptr;
        };
    };
    m_window.ownKeys = {{"Enter", "open the marked visit"}, {"F5", "ask again", onKey([this] { refresh(); })}};
    for (const Action& action : m_actions) {
        const auto act = [this, &action] { doWith(action); };
        action.button.onClick = act;
        m_window.ownKeys.push_back({action.key, action.deed, onKey(act)});
    }
    reports::bindPrintKeys(m_window, [this](const reports::Paper& paper) {
        if (const Visit* const visit = current())
            showPaper(paper, Visit{*visit}, true);
    });
}

void frmTodaysVisits::doWith(const Action& action) {
    if (const Visit* const visit = current())
        action.act(Visit{*visit}); // the list may be read anew meanwhile
}

void frmTodaysVisits::showTodaysVisits() {
    m_session.desktop.showModal(m_window);
}

void frmTodaysVisits::load() {
    m_fields.txtSearch.setText("");
    m_fields.chkMine.setChecked(false);
    m_window.setStatus({});
    ask();
    list({});
    m_window.setFocus(m_listed.empty() ? static_cast<ui::Control&>(m_fields.txtSearch) : m_fields.grdVisits);
}

void frmTodaysVisits::ask() {
    const ui::BusyPointer busy(m_session.desktop);
    const DateTime today = data::GetServerDate(m_session);
    m_visits.read(data::search(m_session, statements::visitsOf(today)));
}

/// Reads the visits anew; the one that was marked stays marked.
void frmTodaysVisits::refresh() {
    const std::string marked = current() != nullptr ? current()->opdNumber : std::string{};
    ask();
    list(marked);
}

/// Shows what the clerk wants to see of the visits, with the visit of that number marked, or else the first one.
void frmTodaysVisits::list(const std::string& current) {
    const bool mine = m_fields.chkMine.checked();
    m_listed = m_visits.holding(m_fields.txtSearch.text(), mine ? m_session.globals.gUserID : std::string{});
    std::vector<ui::Grid::Row> rows;
    rows.reserve(m_listed.size());
    for (const Visit* visit : m_listed)
        rows.push_back(cellsOf(*visit));
    const auto marked =
        std::find_if(m_listed.begin(), m_listed.end(), [&](const Visit* visit) { return visit->opdNumber == current; });
    const auto row = marked == m_listed.end() ? 1 : static_cast<int>(marked - m_listed.begin()) + 1;
    m_fields.grdVisits.show(columns(), std::move(rows));
    if (!m_listed.empty())
        m_fields.grdVisits.setCurrentRow(row);
    m_fields.lblCount.setCaption(countOf(m_listed.size(), m_visits.all().size()));
    m_fields.cmdOpen.setEnabled(!m_listed.empty());
    for (const Action& action : m_actions)
        action.button.setEnabled(!m_listed.empty());
}

const Visit* frmTodaysVisits::current() const {
    const int row = m_fields.grdVisits.currentRow();
    return row > 0 && static_cast<std::size_t>(row) <= m_listed.size() ? m_listed[static_cast<std::size_t>(row) - 1]
                                                                       : nullptr;
}

void frmTodaysVisits::open() {
    const Visit* const visit = current();
    if (visit == nullptr)
        return;
    m_window.setStatus({});
    m_session.globals.lastOutcome.clear();
    m_registration.open({.FormType = "Edit", .HospNum = visit->hospNum, .AdmissionNumber = visit->opdNumber});
    m_window.setStatus(std::exchange(m_session.globals.lastOutcome, {}));
    refresh();
    m_window.setFocus(m_fields.grdVisits);
}

void frmTodaysVisits::printDataSheet(const Visit& visit) {
    reports::showDataSheet(m_session, *reports::prepareDataSheet(m_session, visit.opdNumber));
    m_window.setFocus(m_fields.grdVisits);
}

void frmTodaysVisits::showPaper(const reports::Paper& paper, const Visit& visit, bool atOnce) {
    reports::showPaper(m_session, paper, visit.opdNumber, visit.hospNum, atOnce);
    m_window.setFocus(m_fields.grdVisits);
}

} // namespace opd::visits
