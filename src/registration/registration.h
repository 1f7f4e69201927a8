#pragma once

#include "search/registration_opener.h"
#include "session/session.h"

#include <memory>

namespace opd::registration {

class RegistrationForm;

/// The one registration form of a session, as its opener sees it. Every opening makes the form afresh and every closing
/// throws it away with all its values.
class frmRegistration final : public search::RegistrationOpener {
  public:
    explicit frmRegistration(Session& session);
    ~frmRegistration() override;

    void setFormType(const std::string& type) override;
    void setHospNum(const std::string& number) override;
    void setAdmissionNumber(const std::string& number) override;
    void setLastName(const std::string& name) override;
    void SetRegistrationMode() override;
    bool SearchPatient() override;
    void showModal() override;
    void show() override;
    void discard() override;

    /// The loaded form, or null.
    RegistrationForm* form() const { return m_form.get(); }

  private:
    Session& m_session;
    std::unique_ptr<RegistrationForm> m_form;
};

} // namespace opd::registration
