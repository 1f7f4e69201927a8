#pragma once

#include "reports/web_cam_capture.h"
#include "tests/adapters/qt/desk.h"
#include "ui/key_card.h"

#include <functional>

namespace opd::qt {

using LookAtPage = std::function<void(WindowShell&, ui::Window&, const std::string& where)>;

/// The tabs of a window, or null.
inline ui::Tabs* tabsOf(const ui::Window& window) {
    for (ui::Control* control : window.everything())
        if (control->kind() == ui::Kind::Tabs)
            return static_cast<ui::Tabs*>(control);
    return nullptr;
}

/// Opens one window afresh for each of its pages.
template <class Form> void everyPageOf(const LookAtPage& look) {
    int pages = 1;
    for (int page = 0; page < pages; ++page) {
        Desk<Form> desk;
        std::string where = desk.form.name();
        if (ui::Tabs* tabs = tabsOf(desk.form)) {
            pages = static_cast<int>(tabs->pages().size());
            tabs->show(page);
            where += " " + tabs->pages()[static_cast<std::size_t>(page)]->name();
        }
        hands::settle();
        look(desk.shell(), desk.form, where);
    }
}

/// Opens each window of the desk, alone and with everything that it has visible, and lets each of its pages be looked
/// at.
inline void everyPage(const LookAtPage& look) {
    everyPageOf<samples::SearchWindow>(look);
    everyPageOf<samples::RegistrationWindow>(look);
    everyPageOf<samples::ChangedMeanwhile>(look);
    everyPageOf<samples::SearchDialog>(look);
    everyPageOf<samples::ChiefComplaintDialog>(look);
    everyPageOf<samples::PickList>(look);
    everyPageOf<samples::ListingWindow>(look);
    everyPageOf<samples::TodaysVisits>(look);
    everyPageOf<samples::ReportViewer>(look);
    everyPageOf<reports::frmWebCamCapture>(look);
    ui::KeyCard card{samples::RegistrationWindow()};
    QtDesktop desktop;
    desktop.show(card);
    hands::settle();
    look(*desktop.currentShell(), card, card.name());
}

/// Three rows in every list, the second of them the current one.
inline void fillLists(const ui::Window& window) {
    for (ui::Control* control : window.everything())
        if (control->kind() == ui::Kind::Grid) {
            auto& grid = static_cast<ui::Grid&>(*control);
            grid.show(ui::gridColumns("<Code|<Name", {1200, 4000}), {{"01", "ANA"}, {"02", "BEN"}, {"03", "CARA"}});
            grid.setCurrentRow(2);
        }
}

/// Something to read in everything that shows text.
inline void fillFields(const ui::Window& window) {
    fillLists(window);
    for (ui::Control* control : window.everything()) {
        if (control->kind() == ui::Kind::TextBox)
            static_cast<ui::TextBox*>(control)->setText("HÑ");
        else if (control->kind() == ui::Kind::MaskedBox)
            static_cast<ui::MaskedBox*>(control)->setText("03/07/1980");
        else if (control->kind() == ui::Kind::ComboBox)
            static_cast<ui::ComboBox*>(control)->setText("HÑ");
        else if (control->kind() == ui::Kind::Label)
            control->setCaption("HÑ");
    }
}

} // namespace opd::qt
