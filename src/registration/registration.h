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

    void setFormType(const std::string& type) override { m_opening.FormType = type; }
    void setHospNum(const std::string& number) override { m_opening.HospNum = number; }
    void setAdmissionNumber(const std::string& number) override { m_opening.AdmissionNumber = number; }
    void setLastName(const std::string& name) override { m_opening.lastName = name; }
    void SetRegistrationMode() override;
    bool SearchPatient() override;
    void setStatus(const std::string& status) override { m_form->window().setStatus(status); }
    void showModal() override;
    void show() override;
    void discard() override;

    /// The loaded form, or null.
    RegistrationForm* form() const { return m_form.get(); }

  private:
    Session& m_session;
    Opening m_opening;
    std::unique_ptr<RegistrationForm> m_form;
};

} // namespace opd::registration
