#include "registration/revoke/revoke.h"

#include "ado/error.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

using ado::Statement;

std::string shownVisit(const FormContext& form) {
    return text::upper(form.fields.header.txtOPDNum.text());
}

void notify(FormContext& form, const std::string& text) {
    form.session.desktop.ask({.text = text, .caption = "Notification"});
}

bool hasPendingBill(const FormContext& form) {
    const ado::Recordset bill = data::openPlain(
        form.session,
        Statement("billing..sp_OPD_ComputeHospitalBill'").value(form.fields.header.txtOPDNum.text()).text("'"));
    return !bill.EndOfFile() && bill.Fields("HospitalBill").asNumber() != 0;
}

/// The rule goes by the workstation's calendar.
bool isOfToday(const FormContext& form) {
    return form.fields.header.dtpAdmDate.value().date() == form.session.clock.now().date();
}

bool confirmed(FormContext& form, const char* question) {
    return form.session.desktop.ask({.text = question,
                                     .caption = "Notification",
                                     .buttons = ui::Buttons::YesNo,
                                     .icon = ui::Icon::Critical,
                                     .defaultAnswer = ui::Answer::No}) == ui::Answer::Yes;
}

/// What the status becomes, how the log calls that, and what is said when it fails.
struct Change {
    const char* action;
    const char* statusReached;
    const char* failureText;
};

/// Writes status and log, each by itself, and closes the form; a failure is told, with what is true by then, and keeps
/// it open.
void write(FormContext& form, const Statement& status, const Change& change) {
    bool statusStands = false;
    try {
        const ui::BusyPointer busy(form.session.desktop);
        data::execute(form.session, status);
        statusStands = true;
        const ado::LongPatience patience(form.session.connection());
        data::execute(form.session, Statement("Patient_Data..sp_AOPD_SaveOPDRevokedLog '")
                                        .values({shownVisit(form), form.session.globals.gUserID, change.action}, "','")
                                        .text("'"));
    } catch (const ado::Error& failure) {
        notify(form, std::string{change.failureText} + "\r\n\r\n" + failure.what() + "\r\n\r\n" +
                         (statusStands ? std::string{"The visit is "} + change.statusReached +
                                             " by now; the log of it is missing."
                                       : "Nothing was changed."));
        return;
    }
    form.window.unload();
}

void revoke(FormContext& form) {
    if (hasPendingBill(form))
        return notify(form, "You are not allowed to revoke admissions with pending hospital bills.");
    if (!isOfToday(form))
        return notify(form, "You can only revoke admissions made today.");
    if (confirmed(form, "Are you sure you want this patient's admission to be revoked."))
        write(form,
              Statement("update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '")
                  .value(shownVisit(form))
                  .text("'"),
              {"Revoked", "revoked",
               "An error has occured while revoking this patient's admission. You may click on REVOKE to try again."});
}

void restore(FormContext& form) {
    if (!isOfToday(form))
        return notify(form, "You can only un-revoke admissions made today.");
    if (confirmed(form, "Are you sure you want this patient's admission to be Restored."))
        write(form,
              Statement("update Patient_Data..tboutpatient set opdstatus = '' where idnum = '")
                  .value(shownVisit(form))
                  .text("'"),
              {"Unrevoked", "restored",
               "An error has occured while un-revoking this patient's admission. You may click on UNREVOKE to try "
               "again."});
}

} // namespace

void bindRevoke(FormContext& form) {
    form.fields.buttons.cmdRevoke.onClick = [&form] { revoke(form); };
    form.fields.buttons.cmdUnRevoke.onClick = [&form] { restore(form); };
}

} // namespace opd::registration
