#include "data/procedures/eligibility.h"

#include "base/text/leading_number.h"
#include "base/text/text.h"

namespace opd::data {

namespace {

constexpr int gynecology = 9;
constexpr int newborn = 13;
constexpr int pediatrics = 14;
constexpr int obstetrics = 16;

bool refuse(ui::Desktop& desktop, const char* reason) {
    desktop.ask({.text = reason, .icon = ui::Icon::Critical});
    return false;
}

} // namespace

bool CheckServiceEligibility(ui::Desktop& desktop, const std::string& serviceCode, const std::string& sex,
                             const std::string& age) {
    const int service = static_cast<int>(text::leadingNumber(serviceCode));
    const double years = text::leadingNumber(age);
    if (sex == "M" && (service == gynecology || service == obstetrics))
        return refuse(desktop, "Cannot use this service for male patient...");
    if (service == newborn && years > 0)
        return refuse(desktop, "Patient's age indicates that Newborn is not a valid service...");
    if (service == pediatrics && years > 15)
        return refuse(desktop, "Patient's age indicates that Pediatrics is not a valid service...");
    if (service == obstetrics && years < 15)
        return desktop.ask({.text = "Patient's age indicates that this is a Pediatric case. Are you sure this is an "
                                    "obsteric case?",
                            .buttons = ui::Buttons::YesNo,
                            .icon = ui::Icon::Question}) == ui::Answer::Yes;
    return true;
}

void AppendMessageLine(std::string& text, const std::string& line) {
    text = text::isBlank(text) ? line : text + "\r\n" + line;
}

} // namespace opd::data
