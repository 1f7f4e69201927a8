#pragma once

#include "platform/ui/window.h"
#include "search/master_search_fields.h"
#include "search/registration_opener.h"
#include "session/session.h"

namespace opd::search {

/// "Master Patient Search": finds a patient on file and opens the registration form for that patient or a new one.
class frmMasterSearch {
  public:
    frmMasterSearch(Session& session, RegistrationOpener& registration);

    ui::Window& window() { return m_window; }
    MasterSearchFields& fields() { return m_fields; }

    /// Shows the window and returns when it is closed for good.
    void showModal();

    /// True when the clerk closed the window without anything having been opened since it was loaded.
    bool closedByOperator() const { return m_closedByOperator; }

  private:
    void bind();
    void load();

    Session& m_session;
    RegistrationOpener& m_registration;
    ui::Window m_window{"frmMasterSearch", "Master Patient Search"};
    MasterSearchFields m_fields{m_window};
    bool m_closedByOperator = false;
};

} // namespace opd::search
