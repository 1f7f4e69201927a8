#include "registration/load/authorization_loader.h"

#include "data/rows.h"
#include "registration/amount_text.h"
#include "registration/load/columns.h"

namespace opd::registration {

namespace {

/// Shows a moment in its two pickers; a moment that was never stored leaves them as they are.
void showMoment(const ado::Recordset& letter, const char* column, ui::DatePicker& date, ui::DatePicker& time) {
    const DateTime moment = letter.Fields(column).asDate();
    if (!moment.isSet())
        return;
    date.setValue(moment);
    time.setValue(moment);
}

} // namespace

void LoadHMOLOA(FormContext& form, const std::string& opdNumber) {
    const ado::Recordset letter = data::openClient(
        form.session, data::Statement("Select IDNum, IsNull(ApprovalNo,'') ApprovalNo, IsNull(LOAAmount,0) LOAAmount, "
                                      "LOADateInformed, IsNull(LOAReceiver,'') LOAReceiver, LOADateReceived, "
                                      "IsNull(LOAStatus,'') LOAStatus, IsNull(LOARemarks,'') LOARemarks "
                                      "From Patient_Data..tbOpdHMOLOA Where IDNum = '")
                          .value(opdNumber)
                          .text("'"));
    if (letter.EndOfFile())
        return;
    AdditionalTab& additional = form.fields.additional;
    showMoment(letter, "LOADateInformed", additional.DateLOAInformed, additional.TimeLOAInformed);
    showMoment(letter, "LOADateReceived", additional.DateLOAReceived, additional.TimeLOAReceived);
    fill(letter, {{"LOAReceiver", additional.txtLOAReceiver}, {"LOARemarks", additional.txtLOARemarks}});
    additional.txtLOAAmount.setText(amountText(letter.Fields("LOAAmount").asNumber()));
    additional.cmbLOAStatus.select(data::textOf(letter, "LOAStatus") == "Covered" ? 0 : 1);
}

} // namespace opd::registration
