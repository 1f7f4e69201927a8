#include "registration/rules/visit_rules.h"

#include "base/clock/date_text.h"
#include "base/text/leading_number.h"
#include "base/text/text.h"
#include "data/procedures/dates.h"
#include "registration/record/amount_text.h"
#include "registration/rules/marks.h"
#include "registration/rules/messages.h"
#include "ui/window.h"

#include <algorithm>

namespace opd::registration {

namespace {

constexpr const char* wrongOrder = "The upper value is below the lower one.";
constexpr const char* unusualPressure = "This value is unusual. Is it right?";
constexpr const char* unusualTemperature = "This temperature is unusual. Is it right?";
constexpr const char* notNumeric = "Cannot accept non-numeric values";

bool isInOrder(const ConsultationTab& consultation) {
    return text::leadingNumber(consultation.systolic.text()) >= text::leadingNumber(consultation.diastolic.text());
}

bool isNormal(const ui::TextBox& box, double least, double most) {
    const double value = text::leadingNumber(box.text());
    return value >= least && value <= most;
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
        value->onChange.also([&consultation] {
            if (consultation.systolic.refusal() == wrongOrder && isInOrder(consultation))
                consultation.systolic.setRefusal({});
        });
}

bool isTemperatureKey(char32_t key) {
    return key == ui::key::backspace || key == U'.' || key == U'/' || (key >= U'0' && key <= U'9');
}

/// A number as a clerk writes it: digits with at most one point, perhaps behind a sign.
bool isNumeric(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::any_of(text.begin(), text.end(), isDigit) && std::count(text.begin(), text.end(), '.') <= 1 &&
           std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || c == '.'; });
}

} // namespace

VisitRules::VisitRules(ui::Desktop& desktop, const DateTime& serverDate, Fields& fields)
    : m_desktop(desktop), m_serverDate(serverDate), m_fields(fields) {
    bindDates();
    bindBloodPressure();
    bindTemperature();
    bindPulse();
    bindAuthorizedAmount();
}

void VisitRules::tell(const char* text) {
    m_desktop.ask({.text = text});
}

bool VisitRules::confirmsEntry() {
    return m_desktop.ask({.text = "Is this Entry Correct ?",
                          .caption = "Message",
                          .buttons = ui::Buttons::YesNo,
                          .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

void VisitRules::bindDates() {
    ui::DatePicker& admitted = m_fields.header.dtpAdmDate;
    admitted.onValidate = [this, &admitted](bool& refuse) {
        const char* const fault = faultOfAdmissionDate();
        if (fault != nullptr)
            tell(fault);
        refuse = refusedUnless(fault == nullptr, admitted, fault == nullptr ? "" : fault);
    };
    ui::MaskedBox& period = m_fields.history.txtLMP;
    period.onValidate = [this, &admitted, &period](bool& refuse) {
        const bool valid = period.isBlank() || data::IsDateInRange(period.text(), "", dateText(admitted.value()));
        if (!valid)
            tell(invalidDate);
        refuse = refusedUnless(valid, period, invalidDate);
    };
}

/// Why the admission date is wrong, or null.
const char* VisitRules::faultOfAdmissionDate() const {
    const std::string admitted = sortableDateText(m_fields.header.dtpAdmDate.value());
    const std::optional<DateTime> born = parseDate(m_fields.header.txtBirthDate.text());
    if (admitted > sortableDateText(m_serverDate))
        return "Admission must not be later than the current date...";
    if (born && admitted < sortableDateText(*born))
        return "Admission date must not be earlier than the patient's birthdate...";
    return admitted < "1980/01/01" ? "Invalid admission date..." : nullptr;
}

void VisitRules::bindBloodPressure() {
    ConsultationTab& consultation = m_fields.consultation;
    bindPressureMarks(consultation);
    consultation.systolic.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            enteredSystolic();
        else if (press.code == U'/')
            press.drop(); // it parts the two values where they are stored
    };
    consultation.diastolic.onKeyPress = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            enteredDiastolic();
        else if (press.code == U'/')
            press.drop();
    };
}

void VisitRules::enteredSystolic() {
    ConsultationTab& consultation = m_fields.consultation;
    if (isUsualSystolic(consultation))
        return;
    ui::Window& window = consultation.systolic.window();
    if (!confirmsPressure(consultation.systolic)) { // where the focus goes is as the hospitals know it
        window.setFocus(consultation.diastolic);
        return;
    }
    window.setFocus(consultation.txtTemperature);
    checkOrder();
}

void VisitRules::enteredDiastolic() {
    ConsultationTab& consultation = m_fields.consultation;
    ui::Window& window = consultation.diastolic.window();
    if (!isUsualDiastolic(consultation)) {
        if (!confirmsPressure(consultation.diastolic)) { // likewise
            window.setFocus(consultation.systolic);
            return;
        }
        window.setFocus(consultation.diastolic);
    }
    checkOrder();
}

/// Asks about an unusual value. One that the clerk does not stand by is marked.
bool VisitRules::confirmsPressure(ui::TextBox& box) {
    const bool confirmed = confirmsEntry();
    box.setRefusal(confirmed ? "" : unusualPressure);
    return confirmed;
}

void VisitRules::checkOrder() {
    ui::TextBox& systolic = m_fields.consultation.systolic;
    if (isInOrder(m_fields.consultation))
        return;
    systolic.setRefusal(wrongOrder);
    tell("INVALID ENTRY!");
    systolic.window().setFocus(systolic);
}

void VisitRules::bindTemperature() {
    ui::TextBox& temperature = m_fields.consultation.txtTemperature;
    // Enter leads on, and what is unusual is asked about when the field is left.
    temperature.onKeyPress = [](ui::KeyPress& press) {
        if (press.code != ui::key::enter && !isTemperatureKey(press.code))
            press.drop();
    };
    temperature.onValidate = [this, &temperature](bool&) {
        const bool accepted = text::isBlank(temperature.text()) || isNormal(temperature, 35, 41) || confirmsEntry();
        refusedUnless(accepted, temperature, unusualTemperature);
    };
}

void VisitRules::bindPulse() {
    ui::TextBox& pulse = m_fields.consultation.txtPR;
    pulse.onChange = [this] { changedPulse(); };
    pulse.onLostFocus = [&pulse] { pulse.setRefusal({}); };
}

/// What is stored is shown as it is.
void VisitRules::changedPulse() {
    ui::TextBox& pulse = m_fields.consultation.txtPR;
    if (m_clearsPulse || !pulse.window().isOpen())
        return;
    const bool accepted = isNumeric(text::trimmed(pulse.text()));
    pulse.setRefusal(accepted ? "" : notNumeric);
    if (accepted)
        return;
    m_desktop.ask({.text = notNumeric, .caption = "Message", .icon = ui::Icon::Information});
    m_clearsPulse = true;
    pulse.setText("");
    m_clearsPulse = false;
    pulse.window().setFocus(pulse);
}

/// The amount of the letter of authorization is shown as it will be stored.
void VisitRules::bindAuthorizedAmount() {
    ui::TextBox& amount = m_fields.additional.txtLOAAmount;
    amount.onValidate = [this, &amount](bool& refuse) {
        const std::optional<double> value = parseAmount(amount.text());
        if (!value)
            m_desktop.ask({.text = invalidAmount, .caption = "Warning", .icon = ui::Icon::Critical});
        else if (!text::isBlank(amount.text()))
            amount.setText(amountText(*value));
        refuse = refusedUnless(value.has_value(), amount, invalidAmount);
    };
}

} // namespace opd::registration
