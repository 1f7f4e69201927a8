#include "registration/rules/visit_rules.h"

#include "data/leading_number.h"
#include "data/procedures/dates.h"
#include "platform/clock/date_text.h"
#include "platform/text/text.h"
#include "platform/ui/window.h"
#include "registration/rules/lookup_request.h"

#include <algorithm>
#include <utility>

namespace opd::registration {

namespace {

void tell(FormContext& form, const char* text) {
    form.session.desktop.ask({.text = text});
}

bool confirmsEntry(FormContext& form) {
    return form.session.desktop.ask({.text = "Is this Entry Correct ?",
                                     .caption = "Message",
                                     .buttons = ui::Buttons::YesNo,
                                     .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

/// Why the admission date is wrong, or null.
const char* faultOfAdmissionDate(const FormContext& form) {
    const std::string admitted = sortableDateText(form.fields.header.dtpAdmDate.value());
    const std::optional<DateTime> born = parseDate(form.fields.header.txtBirthDate.text());
    if (admitted > sortableDateText(form.session.globals.gServerDate))
        return "Admission must not be later than the current date...";
    if (born && admitted < sortableDateText(*born))
        return "Admission date must not be earlier than the patient's birthdate...";
    return admitted < "1980/01/01" ? "Invalid admission date..." : nullptr;
}

void bindDates(FormContext& form) {
    ui::DatePicker& admitted = form.fields.header.dtpAdmDate;
    admitted.onValidate = [&form, &admitted](bool& refuse) {
        const char* const fault = faultOfAdmissionDate(form);
        if (fault != nullptr)
            tell(form, fault);
        refuse = refusedUnless(fault == nullptr, admitted, fault == nullptr ? "" : fault);
    };
    ui::MaskedBox& period = form.fields.history.txtLMP;
    period.onValidate = [&form, &period](bool& refuse) {
        const bool valid =
            period.isBlank() || data::IsDateInRange(period.text(), "", dateText(form.fields.header.dtpAdmDate.value()));
        if (!valid)
            tell(form, "Invalid date...");
        refuse = refusedUnless(valid, period, "Invalid date...");
        if (refuse)
            form.window.setFocus(period);
    };
}

// Blood pressure

void checkOrder(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    if (data::leadingNumber(consultation.systolic.text()) >= data::leadingNumber(consultation.diastolic.text()))
        return;
    tell(form, "INVALID ENTRY!");
    form.window.setFocus(consultation.systolic);
}

bool isNormal(const ui::TextBox& box, double least, double most) {
    const double value = data::leadingNumber(box.text());
    return value >= least && value <= most;
}

void bindBloodPressure(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    consultation.systolic.onKeyPress = [&form, &consultation](ui::KeyPress& press) {
        if (press.code != ui::key::enter || isNormal(consultation.systolic, 70, 200))
            return;
        if (!confirmsEntry(form)) {
            form.window.setFocus(consultation.diastolic);
            return;
        }
        form.window.setFocus(consultation.txtTemperature);
        checkOrder(form);
    };
    consultation.diastolic.onKeyPress = [&form, &consultation](ui::KeyPress& press) {
        if (press.code != ui::key::enter)
            return;
        if (!isNormal(consultation.diastolic, 50, 150)) {
            if (!confirmsEntry(form)) {
                form.window.setFocus(consultation.systolic);
                return;
            }
            form.window.setFocus(consultation.diastolic);
        }
        checkOrder(form);
    };
}

// Temperature and pulse

bool isTemperatureKey(char32_t key) {
    return key == ui::key::backspace || key == U'.' || key == U'/' || (key >= U'0' && key <= U'9');
}

bool acceptTemperature(FormContext& form) {
    return isNormal(form.fields.consultation.txtTemperature, 35, 41) || confirmsEntry(form);
}

void bindTemperature(FormContext& form) {
    ui::TextBox& temperature = form.fields.consultation.txtTemperature;
    // Enter leads on, and what is unusual is asked about when the field is left.
    temperature.onKeyPress = [](ui::KeyPress& press) {
        if (press.code != ui::key::enter && !isTemperatureKey(press.code))
            press.drop();
    };
    temperature.onValidate = [&form, &temperature](bool&) {
        if (!text::isBlank(temperature.text()) && !acceptTemperature(form))
            form.window.setFocus(temperature);
    };
}

bool isNumeric(const std::string& text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || c == '.'; });
}

void bindPulse(FormContext& form) {
    ui::TextBox& pulse = form.fields.consultation.txtPR;
    // Clearing what was refused is a change itself, about which nothing more is said.
    auto clearing = std::make_shared<bool>(false);
    pulse.onChange = [&form, &pulse, clearing] {
        if (*clearing || isNumeric(text::trimmed(pulse.text())))
            return;
        form.session.desktop.ask(
            {.text = "Cannot accept non-numeric values", .caption = "Message", .icon = ui::Icon::Information});
        *clearing = true;
        pulse.setText("");
        *clearing = false;
        if (form.window.isOpen())
            form.window.setFocus(pulse);
    };
}

} // namespace

void bindVisitRules(FormContext& form) {
    bindDates(form);
    bindBloodPressure(form);
    bindTemperature(form);
    bindPulse(form);
}

} // namespace opd::registration
