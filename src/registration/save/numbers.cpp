#include "registration/save/numbers.h"

#include "ado/command.h"
#include "ado/error.h"
#include "base/text/text.h"

#include <optional>

namespace opd::registration {

namespace {

std::string drawn(FormContext& form, const ado::Statement& procedure, const char* parameter, int size) {
    ado::Command command(form.session.connection());
    command.CommandText = procedure;
    command.addOutput(parameter, size);
    command.Execute();
    std::string number = command.output(0).asText();
    if (text::isBlank(number))
        throw ado::Error("The database gave no number.");
    return number;
}

std::optional<std::string> draw(FormContext& form, const ado::Statement& procedure, const char* parameter, int size,
                                const char* failureText) {
    try {
        return drawn(form, procedure, parameter, size);
    } catch (const std::exception& failure) { // the clerk learns what it means, and why
        form.session.desktop.ask({.text = std::string{failureText} + "\r\n\r\n" + failure.what() +
                                          "\r\n\r\nNothing was saved. What was typed is kept until the desk is "
                                          "closed, and offered again when this registration is opened the next time.",
                                  .caption = "Error",
                                  .icon = ui::Icon::Critical});
        return std::nullopt;
    }
}

} // namespace

bool drawHospNum(FormContext& form) {
    const auto number =
        draw(form, "Patient_Data..sp_adm_GetNewHospNum", "@HospNum", 8, "Unable to assign a new hospnum");
    form.record.SaveHospNum = number.value_or(std::string{});
    return number.has_value();
}

bool drawOpdNumber(FormContext& form) {
    const auto number =
        draw(form, "Patient_Data..sp_aopd_GetNewOPDID", "@IdNum", 10, "Unable to assign a new OPD Number");
    form.record.SaveIDNum = number.value_or(std::string{});
    return number.has_value();
}

} // namespace opd::registration
