#include "registration/kept/kept_registrations.h"

#include "registration/rules/guidance.h"
#include "ui/window_content.h"

namespace opd::registration {

struct KeptRegistration {
    std::string name; ///< of the patient, as the clerk knows it
    ui::WindowContent content;
    Record record;
};

namespace {

std::string nameOf(const Fields& fields) {
    const HeaderFields& header = fields.header;
    return text::trimmed(header.txtLastName.text() + ", " + header.txtFirstName.text() + " " +
                         header.txtMiddleName.text());
}

} // namespace

void KeptRegistrations::keep() {
    Record record = m_record;
    record.emptySlots();
    m_session.globals.keptRegistrations[text::upper(m_patient)] = std::make_shared<const KeptRegistration>(
        KeptRegistration{nameOf(m_fields), ui::WindowContent(m_window), std::move(record)});
}

void KeptRegistrations::offer() {
    if (!m_record.isNew())
        return;
    auto& all = m_session.globals.keptRegistrations;
    const auto found = all.find(text::upper(m_patient));
    if (found == all.end())
        return;
    const std::shared_ptr<const KeptRegistration> kept = found->second;
    const ui::Message question{.text = "Continue with the registration of " + kept->name + " that could not be saved?",
                               .buttons = ui::Buttons::YesNo,
                               .icon = ui::Icon::Question};
    if (m_session.desktop.ask(question) == ui::Answer::Yes)
        takeUp(*kept);
    else
        forget();
}

void KeptRegistrations::forgetTakenUp() {
    if (m_isTakenUp)
        forget();
}

void KeptRegistrations::takeUp(const KeptRegistration& kept) {
    kept.content.restore(m_window);
    m_record = kept.record;
    showAgeInMonths(m_fields.header, m_session.globals.gServerDate); // restoring raises no change
    m_window.setFocus(m_fields.buttons.cmdSave);
    m_isTakenUp = true;
}

void KeptRegistrations::forget() {
    m_session.globals.keptRegistrations.erase(text::upper(m_patient));
}

} // namespace opd::registration
