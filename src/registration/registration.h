#pragma once

#include "registration/registration_form.h"
#include "search/registration_opener.h"
#include "session/session.h"

#include <memory>

namespace opd::registration {

/// The one registration form of a session, as its opener sees it. Every opening makes the form afresh and every closing
/// throws it away with all its values.
class frmRegistration final : public search::RegistrationOpener {
  public:
    explicit frmRegistration(Session& session) : m_session(session) {}

    search::Opened open(const search::Opening& opening) override;

  private:
    void load(const search::Opening& opening);
    search::Opened admission(const search::Opening& opening);
    void show(bool modal);

    Session& m_session;
    std::unique_ptr<RegistrationForm> m_form;
};

} // namespace opd::registration
