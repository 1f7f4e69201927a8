#include "search/pick_list.h"

#include "data/grid_rows.h"
#include "data/rows.h"
#include "search/statements.h"

namespace opd::search {

frmPickList::frmPickList(Session& session) : m_session(session) {
    m_window.onFailure = [this](const std::exception& failure) { data::reportFailure(m_session, failure); };
    m_window.cancelButton = &m_fields.cmdCancel;
    m_window.defaultButton = &m_fields.cmdOK;
    m_fields.cmdOK.onClick = [this] { confirm(); };
    m_fields.cmdCancel.onClick = [this] { m_window.unload(); };
    m_fields.grdMain.onDoubleClick = [this] { confirm(); };
    m_fields.grdMain.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            confirm();
    };
}

void frmPickList::InitializeForm(const std::string& caption, const std::string& serviceCode,
                                 const std::string& serviceName, bool interactive) {
    m_window.setCaption(caption);
    m_serviceCode = serviceCode;
    m_serviceName = serviceName;
    m_interactive = interactive;
}

void frmPickList::LoadForm() {
    m_selected = false;
    const bool found = fill(m_serviceCode, false);
    if (!m_interactive) {
        m_selected = true;
        return;
    }
    if (!found) {
        if (!confirmedManualChoice())
            return;
        fill("", true);
    }
    m_session.desktop.showModal(m_window);
}

bool frmPickList::confirmedManualChoice() {
    return m_session.desktop.ask(
               {.text = "According to the build file, there is no doctor available that performs the " + m_serviceName +
                        " service.\r\nDo you want to manually assign a doctor?",
                .caption = "Verification",
                .buttons = ui::Buttons::YesNo,
                .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

bool frmPickList::fill(const std::string& serviceCode, bool allDoctors) {
    ado::ResultSet doctors = data::openClient(m_session, doctorsOfService(serviceCode, allDoctors)).taken();
    const bool found = !doctors.rows.empty();
    m_fields.grdMain.showLater(
        ui::gridColumns("<Dumm|<Name of Doctor|>Code|<Specialization1|<Specialization 2|<Specialization 2",
                        {0, 4000, 1000, 2500, 2500, 2500}),
        data::laterRows(std::move(doctors), 1));
    return found;
}

std::string frmPickList::ReturnID() const {
    return m_fields.grdMain.cell(m_fields.grdMain.currentRow(), 2);
}

std::string frmPickList::ReturnDescription() const {
    return m_fields.grdMain.cell(m_fields.grdMain.currentRow(), 1);
}

void frmPickList::confirm() {
    if (m_fields.grdMain.currentRow() == 0)
        return;
    m_selected = true;
    m_window.unload();
}

} // namespace opd::search
