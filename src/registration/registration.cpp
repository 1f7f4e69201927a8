#include "registration/registration.h"

#include "registration/load/visit_loader.h"

#include <utility>

namespace opd::registration {

void frmRegistration::SetRegistrationMode() {
    m_form = std::make_unique<RegistrationForm>(m_session, std::exchange(m_opening, {}));
    m_form->SetRegistrationMode();
}

bool frmRegistration::SearchPatient() {
    return registration::SearchPatient(m_session, m_form->fields(), m_form->record());
}

void frmRegistration::showModal() {
    m_session.desktop.showModal(m_form->window());
    m_form.reset();
}

void frmRegistration::show() {
    m_session.desktop.show(m_form->window());
}

void frmRegistration::discard() {
    m_form.reset();
    m_opening = {};
}

} // namespace opd::registration
