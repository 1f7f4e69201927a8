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

void takeUp(FormContext& form, const KeptRegistration& kept) {
    kept.content.restore(form.window);
    form.record = kept.record;
    showAgeInMonths(form.fields.header, form.session.globals.gServerDate); // restoring raises no change
    form.window.setFocus(form.fields.buttons.cmdSave);
}

} // namespace

void keepRegistration(const FormContext& form, const std::string& patient) {
    Record record = form.record;
    record.emptySlots();
    form.session.globals.keptRegistrations[text::upper(patient)] = std::make_shared<const KeptRegistration>(
        KeptRegistration{nameOf(form.fields), ui::WindowContent(form.window), std::move(record)});
}

void forgetKeptRegistration(Session& session, const std::string& patient) {
    session.globals.keptRegistrations.erase(text::upper(patient));
}

bool offerKeptRegistration(FormContext& form, const std::string& patient) {
    if (!form.record.isNew())
        return false;
    auto& all = form.session.globals.keptRegistrations;
    const auto found = all.find(text::upper(patient));
    if (found == all.end())
        return false;
    const std::shared_ptr<const KeptRegistration> kept = found->second;
    const ui::Message question{.text = "Continue with the registration of " + kept->name + " that could not be saved?",
                               .buttons = ui::Buttons::YesNo,
                               .icon = ui::Icon::Question};
    if (form.session.desktop.ask(question) != ui::Answer::Yes) {
        forgetKeptRegistration(form.session, patient);
        return false;
    }
    takeUp(form, *kept);
    return true;
}

} // namespace opd::registration
