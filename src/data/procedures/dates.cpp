#include "data/procedures/dates.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "data/statements.h"

namespace opd::data {

DateTime GetServerDate(const Session& session) {
    const ado::Recordset row = openPlain(session, statements::serverDate(), ado::CursorType::ForwardOnly);
    return row.Fields("tdate").asDate();
}

void LoadServerDate(Session& session) {
    try {
        const ado::Recordset row = execute(session, statements::serverDateOfHospital());
        session.globals.gServerDate =
            row.BOF() && row.EndOfFile() ? GetServerDate(session) : row.Fields("CurDate").asDate();
    } catch (const std::exception&) { // the date of the last window serves until a window gets a newer one
    }
}

bool IsDateInRange(const std::string& date, const std::string& lower, const std::string& upper, bool blankAllowed) {
    if (text::isBlank(date) || date == blankDateText)
        return blankAllowed;
    const std::optional<DateTime> day = parseDate(date);
    if (!day)
        return false;
    const std::string wanted = sortableDateText(*day);
    const auto bound = [&](const std::string& text) {
        const std::optional<DateTime> limit = parseDate(text);
        return limit ? sortableDateText(*limit) : wanted;
    };
    return bound(lower) <= wanted && wanted <= bound(upper);
}

int ComputeAge(const Session& session, const std::string& birthDate, const std::string& /*referenceDate*/) {
    const std::optional<DateTime> born = parseDate(birthDate);
    if (!born || !session.globals.gServerDate.isSet())
        return 0;
    return yearsBetween(*born, session.globals.gServerDate);
}

} // namespace opd::data
