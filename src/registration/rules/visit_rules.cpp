#include "registration/rules/visit_rules.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/leading_number.h"
#include "data/procedures/dates.h"
#include "registration/amount_text.h"
#include "registration/rules/lookup_request.h"
#include "registration/rules/marks.h"
#include "ui/window.h"

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
        refuse = refusedUnless(form, fault == nullptr, admitted, fault == nullptr ? "" : fault);
    };
    ui::MaskedBox& period = form.fields.history.txtLMP;
    period.onValidate = [&form, &period](bool& refuse) {
        const bool valid =
            period.isBlank() || data::IsDateInRange(period.text(), "", dateText(form.fields.header.dtpAdmDate.value()));
        if (!valid)
            tell(form, "Invalid date...");
        refuse = refusedUnless(form, valid, period, "Invalid date...");
    };
}

// Blood pressure

constexpr const char* wrongOrder = "The upper value is below the lower one.";
constexpr const char* unusualPressure = "This value is unusual. Is it right?";
constexpr const char* unusualTemperature = "This temperature is unusual. Is it right?";
constexpr const char* notNumeric = "Cannot accept non-numeric values";

bool isInOrder(const ConsultationTab& consultation) {
    return data::leadingNumber(consultation.systolic.text()) >= data::leadingNumber(consultation.diastolic.text());
}

void checkOrder(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    if (isInOrder(consultation))
        return;
    consultation.systolic.setRefusal(wrongOrder);
    tell(form, "INVALID ENTRY!");
    form.window.setFocus(consultation.systolic);
}

bool isNormal(const ui::TextBox& box, double least, double most) {
    const double value = data::leadingNumber(box.text());
    return value >= least && value <= most;
}

/// Asks about an unusual value. One that the clerk does not stand by is marked.
bool confirmsPressure(FormContext& form, ui::TextBox& box) {
    const bool confirmed = confirmsEntry(form);
    box.setRefusal(confirmed ? "" : unusualPressure);
    return confirmed;
}

bool isUsualSystolic(const ConsultationTab& consultation) {
    return isNormal(consultation.systolic, 70, 200);
}

bool isUsualDiastolic(const ConsultationTab& consultation) {
    return isNormal(consultation.diastolic, 50, 150);
}

void bindPressureMarks(ConsultationTab& consultation) {
    takeBackWhen(consultation.systolic, unusualPressure, [&] { return isUsualSystolic(consultation); });
    takeBackWhen(consultation.diastolic, unusualPressure, [&] { return isUsualDiastolic(consultation); });
    for (ui::TextBox* value : {&consultation.systolic, &consultation.diastolic})
        alsoOn(value->onChange, [&consultation] {
            if (consultation.systolic.refusal() == wrongOrder && isInOrder(consultation))
                consultation.systolic.setRefusal({});
        });
}

void bindBloodPressure(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    bindPressureMarks(consultation);
    consultation.systolic.onKeyPress = [&form, &consultation](ui::KeyPress& press) {
        if (press.code != ui::key::enter || isUsualSystolic(consultation))
            return;
        if (!confirmsPressure(form, consultation.systolic)) {
            form.window.setFocus(consultation.diastolic);
            return;
        }
        form.window.setFocus(consultation.txtTemperature);
        checkOrder(form);
    };
    consultation.diastolic.onKeyPress = [&form, &consultation](ui::KeyPress& press) {
        if (press.code != ui::key::enter)
            return;
        if (!isUsualDiastolic(consultation)) {
            if (!confirmsPressure(form, consultation.diastolic)) {
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
        const bool accepted = text::isBlank(temperature.text()) || acceptTemperature(form);
        refusedUnless(form, accepted, temperature, unusualTemperature);
    };
}

/// A number as a clerk writes it: digits with at most one point, perhaps behind a sign.
bool isNumeric(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::any_of(text.begin(), text.end(), isDigit) && std::count(text.begin(), text.end(), '.') <= 1 &&
           std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || c == '.'; });
}

void bindPulse(FormContext& form) {
    ui::TextBox& pulse = form.fields.consultation.txtPR;
    // Clearing what was refused is a change itself, about which nothing more is said. What is stored is shown as it is.
    auto clearing = std::make_shared<bool>(false);
    pulse.onChange = [&form, &pulse, clearing] {
        if (*clearing || !form.window.isOpen())
            return;
        const bool accepted = isNumeric(text::trimmed(pulse.text()));
        pulse.setRefusal(accepted ? "" : notNumeric);
        if (accepted)
            return;
        form.session.desktop.ask({.text = notNumeric, .caption = "Message", .icon = ui::Icon::Information});
        *clearing = true;
        pulse.setText("");
        *clearing = false;
        form.window.setFocus(pulse);
    };
    pulse.onLostFocus = [&pulse] { pulse.setRefusal({}); };
}

/// The amount of the letter of authorization is shown as it will be stored.
void bindAuthorizedAmount(FormContext& form) {
    ui::TextBox& amount = form.fields.additional.txtLOAAmount;
    amount.onValidate = [&form, &amount](bool& refuse) {
        const std::optional<double> value = parseAmount(amount.text());
        if (!value)
            form.session.desktop.ask({.text = invalidAmount, .caption = "Warning", .icon = ui::Icon::Critical});
        else if (!text::isBlank(amount.text()))
            amount.setText(amountText(*value));
        refuse = refusedUnless(form, value.has_value(), amount, invalidAmount);
    };
}

} // namespace

void bindVisitRules(FormContext& form) {
    bindDates(form);
    bindBloodPressure(form);
    bindTemperature(form);
    bindPulse(form);
    bindAuthorizedAmount(form);
}

} // namespace opd::registration
