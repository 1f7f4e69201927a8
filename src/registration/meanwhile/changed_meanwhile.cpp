#include "registration/meanwhile/changed_meanwhile.h"

#include "base/text/text.h"

#include <algorithm>

namespace opd::registration {

namespace {

/// A memo's lines in one.
std::string inOneLine(const std::string& content) {
    return text::replaced(content, "\r\n", " / ");
}

std::string fieldCount(std::ptrdiff_t count) {
    return count == 1 ? "1 field" : std::to_string(count) + " fields";
}

const char* consequence(const FieldDifference& difference) {
    return difference.isTouched ? "replaces their change" : "UNDOES their change: not touched here";
}

} // namespace

frmChangedMeanwhile::frmChangedMeanwhile(std::vector<FieldDifference> differences)
    : m_differences(std::move(differences)) {
    m_window.cancelButton = &m_fields.cmdGoBack;
    m_fields.cmdSaveMine.onClick = [this] { close(Stands::Mine); };
    m_fields.cmdTakeTheirs.onClick = [this] { close(Stands::Theirs); };
    m_fields.cmdGoBack.onClick = [this] { close(Stands::Neither); };
    m_fields.grdFields.onRowChange = [this] { showCurrent(); };
    list();
    warn();
}

Stands frmChangedMeanwhile::ask(ui::Desktop& desktop, const std::string& what) {
    m_choice = Stands::Neither;
    m_fields.lblWhat.setCaption(what);
    desktop.showModal(m_window);
    m_window.unload();
    return m_choice;
}

void frmChangedMeanwhile::close(Stands choice) {
    m_choice = choice;
    m_window.unload();
}

void frmChangedMeanwhile::list() {
    std::vector<ui::Grid::Row> rows;
    for (const FieldDifference& difference : m_differences)
        rows.push_back({difference.field, inOneLine(difference.loaded), inOneLine(difference.stored),
                        inOneLine(difference.written), consequence(difference)});
    m_fields.grdFields.show({{"Field", 2600},
                             {"When it was opened here", 2700},
                             {"Stored now", 2700},
                             {"This desk would write", 2700},
                             {"\"Save mine\"", 3000}},
                            std::move(rows));
}

/// What a clerk who saves would undo without having meant to.
void frmChangedMeanwhile::warn() {
    const auto untouched =
        std::count_if(m_differences.begin(), m_differences.end(), [](const auto& one) { return !one.isTouched; });
    m_fields.lblWarning.setVisible(untouched > 0);
    m_fields.lblWarning.setCaption("\"Save mine\" would undo the other desk's change of " + fieldCount(untouched) +
                                   " that nobody touched here.");
    if (untouched == 0)
        return;
    m_fields.cmdSaveMine.tip.set(m_fields.lblWarning.caption()); // who hears the button hears that, too
    m_fields.cmdSaveMine.hint.set(std::string{m_fields.cmdSaveMine.hint} + " " +
                                  std::string{m_fields.lblWarning.caption()});
}

void frmChangedMeanwhile::showCurrent() {
    const int row = m_fields.grdFields.currentRow();
    if (row < 1 || row > static_cast<int>(m_differences.size()))
        return;
    const FieldDifference& current = m_differences[static_cast<std::size_t>(row - 1)];
    m_fields.txtLoaded.setText(current.loaded);
    m_fields.txtStored.setText(current.stored);
    m_fields.txtWritten.setText(current.written);
}

} // namespace opd::registration
