#pragma once

#include "search/lookup_fields.h"
#include "session/session.h"
#include "ui/window.h"

#include <string>

namespace opd::search {

/// The doctors whose specialization matches a service, least consulted first: the first one at once, or as the clerk
/// chooses. A new one is made for each use.
class frmPickList {
  public:
    explicit frmPickList(Session& session);

    ui::Window& window() { return m_window; }
    PickListFields& fields() { return m_fields; }

    void InitializeForm(const std::string& caption, const std::string& serviceCode, const std::string& serviceName,
                        bool interactive);

    /// Loads the list; not interactive it takes the first doctor, otherwise it shows the window and returns when that
    /// is closed. Throws ado::Error.
    void LoadForm();

    bool UserSelected() const { return m_selected; } ///< a row was confirmed
    std::string ReturnID() const;                    ///< doctor code of the current row
    std::string ReturnDescription() const;           ///< doctor name of the current row

    void DestroyReference() { m_window.unload(); } ///< documented for other callers; unused here

  private:
    bool fill(const std::string& serviceCode, bool allDoctors);
    bool confirmedManualChoice();
    void confirm();

    Session& m_session;
    ui::Window m_window{"frmPickList", ""};
    PickListFields m_fields{m_window};
    std::string m_serviceCode;
    std::string m_serviceName;
    bool m_interactive = false;
    bool m_selected = false;
};

} // namespace opd::search
