#include "registration/save/numbers.h"

#include "ado/command.h"
#include "ado/error.h"
#include "base/text/text.h"
#include "registration/statements/changes.h"

namespace opd::registration {

namespace {

std::string drawn(const Session& session, const ado::Statement& procedure, const char* parameter, int size) {
    ado::Command command(session.connection());
    command.CommandText = procedure;
    command.addOutput(parameter, size);
    command.Execute();
    std::string number = command.output(0).asText();
    if (text::isBlank(number))
        throw ado::Error("The database gave no number.");
    return number;
}

std::optional<std::string> draw(const Session& session, const ado::Statement& procedure, const char* parameter,
                                int size, const char* failureText) {
    try {
        return drawn(session, procedure, parameter, size);
    } catch (const std::exception& failure) { // the clerk learns what it means, and why
        session.desktop.ask({.text = std::string{failureText} + "\r\n\r\n" + failure.what() +
                                     "\r\n\r\nNothing was saved. What was typed is kept until the desk is "
                                     "closed, and offered again when this registration is opened the next time.",
                             .caption = "Error",
                             .icon = ui::Icon::Critical});
        return std::nullopt;
    }
}

} // namespace

std::optional<std::string> drawHospNum(const Session& session) {
    return draw(session, statements::newHospNum(), "@HospNum", 8, "Unable to assign a new hospnum");
}

std::optional<std::string> drawOpdNumber(const Session& session) {
    return draw(session, statements::newOpdNumber(), "@IdNum", 10, "Unable to assign a new OPD Number");
}

} // namespace opd::registration
