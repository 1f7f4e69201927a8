#include "registration/registration.h"

#include "data/procedures/checks.h"
#include "registration/load/visit_loader.h"

namespace opd::registration {

namespace {

/// Throws the loaded form away at the end of its scope unless it was shown.
class Unshown {
  public:
    explicit Unshown(std::unique_ptr<RegistrationForm>& form) : m_form(&form) {}
    ~Unshown() {
        if (m_form != nullptr)
            m_form->reset();
    }
    Unshown(const Unshown&) = delete;
    Unshown& operator=(const Unshown&) = delete;

    void shown() { m_form = nullptr; }

  private:
    std::unique_ptr<RegistrationForm>* m_form;
};

} // namespace

search::Opened frmRegistration::open(const search::Opening& opening) {
    Unshown form(m_form);
    load(opening);
    const search::Opened outcome = admission(opening);
    if (outcome != search::Opened::Shown)
        return outcome;
    if (opening.beforeShowing)
        opening.beforeShowing();
    form.shown();
    show(opening.modal);
    return outcome;
}

void frmRegistration::load(const search::Opening& opening) {
    const ui::BusyPointer busy(m_session.desktop);
    m_form = std::make_unique<RegistrationForm>(m_session, opening);
    m_form->SetRegistrationMode();
    if (!opening.status.empty())
        m_form->window().setStatus(opening.status);
}

/// Whether the loaded form may be shown.
search::Opened frmRegistration::admission(const search::Opening& opening) {
    if (opening.FormType != "New")
        return search::Opened::Shown;
    const ui::Message question{.text = "Account is for employees medicine's. Do you wish to proceed? ",
                               .caption = "Message",
                               .buttons = ui::Buttons::YesNo,
                               .icon = ui::Icon::Question};
    if (data::CheckPatientMasterAccount(m_session, opening.HospNum) &&
        m_session.desktop.ask(question) != ui::Answer::Yes)
        return search::Opened::Declined;
    return SearchPatient(m_session, m_form->fields(), m_form->record()) ? search::Opened::Shown
                                                                        : search::Opened::Refused;
}

void frmRegistration::show(bool modal) {
    if (!modal) {
        m_session.desktop.show(m_form->window());
        return;
    }
    m_session.desktop.showModal(m_form->window());
    m_form.reset();
}

} // namespace opd::registration
