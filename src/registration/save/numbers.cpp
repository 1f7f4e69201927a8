#include "registration/save/numbers.h"

#include "platform/ado/command.h"

#include <optional>

namespace opd::registration {

namespace {

std::optional<std::string> draw(FormContext& form, const char* procedure, const char* parameter, int size,
                                const char* failureText) {
    try {
        ado::Command command(form.session.connection());
        command.CommandText = procedure;
        command.addOutput(parameter, size);
        command.Execute();
        return command.output(0).asText();
    } catch (const std::exception&) { // the clerk learns what it means; the number was not assigned
        form.session.desktop.ask({.text = failureText, .caption = "Error", .icon = ui::Icon::Critical});
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
