#include "registration/load/authorization_loader.h"

#include "data/rows.h"
#include "registration/load/columns.h"
#include "registration/record/amount_text.h"
#include "registration/statements/queries.h"

namespace opd::registration {

namespace {

/// Shows a moment in its two pickers. One that was never stored leaves them as they are.
void showMoment(const ado::Recordset& letter, const char* column, ui::DatePicker& date, ui::DatePicker& time,
                bool& unknown) {
    DateTime moment = letter.Fields(column).asDate();
    moment.second = 0; // the pickers show minutes
    unknown = !moment.isSet();
    if (unknown)
        return;
    date.setValue(moment);
    time.setValue(moment);
}

void tellUnknown(ui::DatePicker& date, ui::DatePicker& time, bool& unknown) {
    for (ui::DatePicker* picker : {&date, &time}) {
        picker->hint = unknown ? ui::Literal{"No date is stored; set one to store it."} : ui::Literal{};
        picker->onChange = [&unknown, &date, &time] {
            unknown = false;
            date.hint = "";
            time.hint = "";
        };
    }
}

} // namespace

void LoadHMOLOA(const Session& session, AdditionalTab& additional, Record& record, const std::string& opdNumber) {
    const ado::Recordset& letter = record.rows.ask(session, statements::authorization(opdNumber));
    record.hasAuthorization = !letter.EndOfFile();
    if (!record.hasAuthorization)
        return;
    showMoment(letter, "LOADateInformed", additional.DateLOAInformed, additional.TimeLOAInformed,
               record.LOAInformedUnknown);
    showMoment(letter, "LOADateReceived", additional.DateLOAReceived, additional.TimeLOAReceived,
               record.LOAReceivedUnknown);
    fill(letter, {{"LOAReceiver", additional.txtLOAReceiver}, {"LOARemarks", additional.txtLOARemarks}});
    additional.txtLOAAmount.setText(amountText(letter.Fields("LOAAmount").asNumber()));
    const std::string status = data::textOf(letter, "LOAStatus");
    additional.cmbLOAStatus.select(status == "Covered" ? 0 : 1);
    record.LOAStatusKept.keep(status, additional.cmbLOAStatus.text());
    tellUnknownMoments(additional, record);
}

void tellUnknownMoments(AdditionalTab& additional, Record& record) {
    tellUnknown(additional.DateLOAInformed, additional.TimeLOAInformed, record.LOAInformedUnknown);
    tellUnknown(additional.DateLOAReceived, additional.TimeLOAReceived, record.LOAReceivedUnknown);
}

} // namespace opd::registration
