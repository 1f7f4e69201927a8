#include "registration/rules/complaint_codes.h"

#include "base/text/text.h"
#include "data/rows.h"
#include "registration/rules/clinical_codes.h"
#include "registration/rules/marks.h"
#include "ui/window.h"

#include <array>

namespace opd::registration {

namespace {

constexpr int otherRevenueListing = 21;
constexpr const char* unknownCause = "No cause of consultation has this code.";

/// The visit stores the memo "Chief Complaint" and not the code, so a complaint that was picked goes into the memo,
/// unless something else was written there.
void takeOver(FormContext& form, const std::string& complaint) {
    ui::TextBox& memo = form.fields.history.complaint;
    if (form.session.globals.gClientName == "RVT") {
        form.window.setStatus("The visits of this hospital store no chief complaint.");
    } else if (text::isBlank(memo.text()) || memo.text() == form.record.takenComplaint) {
        form.record.takenComplaint = complaint;
        memo.setText(complaint);
        form.window.setStatus("The complaint was taken over into \"Chief Complaint\" on \"Diagnosis & History\".");
    } else {
        form.window.setStatus("\"Chief Complaint\" on \"Diagnosis & History\" holds another text, which stays.");
    }
}

/// Shows the complaint of an exact code. False when there is none.
bool showExactComplaint(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    if (!Search_ChiefComplaint(form, consultation.chiefComplaintCode.text()))
        return false;
    consultation.chiefComplaintCode.setText(form.record.chiefComplaintCode);
    consultation.chiefComplaintText.setText(form.record.chiefComplaintText);
    takeOver(form, form.record.chiefComplaintText);
    return true;
}

void lookUpComplaint(FormContext& form) {
    if (showExactComplaint(form))
        return;
    ConsultationTab& consultation = form.fields.consultation;
    search::frmSearchChiefComplaint& dialog = form.complaints;
    dialog.SearchCaption = "Chief Complaints";
    dialog.SearchMode = "CHIEFCOMPLAINT";
    dialog.SearchText = consultation.chiefComplaintCode.text();
    dialog.fields().txtSearchStr.setText(consultation.chiefComplaintCode.text());
    dialog.showModal();
    if (!dialog.Valid())
        return;
    consultation.chiefComplaintCode.setText(dialog.ResultCode());
    consultation.chiefComplaintText.setText(dialog.Result());
    takeOver(form, dialog.Result());
}

void bindChiefComplaint(FormContext& form) {
    ConsultationTab& consultation = form.fields.consultation;
    consultation.searchChiefComplaint.onClick = [&form] { lookUpComplaint(form); };
    consultation.chiefComplaintCode.onKeyPress = [&form, &consultation](ui::KeyPress& press) {
        if (press.code == ui::key::enter && !consultation.chiefComplaintCode.text().empty())
            lookUpComplaint(form);
    };
}

/// A cause of consultation, and where Enter leads from it.
struct Cause {
    ui::TextBox& code;
    ui::TextBox& name;
    ui::Button& button;
    ui::TextBox& next;
};

std::array<Cause, 3> causesOf(ConsultationTab& tab) {
    return {
        {{tab.txtCauseofConsultationID1, tab.txtCauseofConsultation1, tab.cmdCauseofConsultation1,
          tab.txtCauseofConsultationID2},
         {tab.txtCauseofConsultationID2, tab.txtCauseofConsultation2, tab.cmdCauseofConsultation2,
          tab.txtCauseofConsultationID3},
         {tab.txtCauseofConsultationID3, tab.txtCauseofConsultation3, tab.cmdCauseofConsultation3, tab.doctorCode1}}};
}

void lookUpCause(FormContext& form, const Cause& cause) {
    const com::Object& codeSearch = form.session.globals.gCodeSearch;
    codeSearch.set("OtherSectionID", std::string{"AA"});
    const std::string& code = cause.code.text();
    const bool found = codeSearch.flag("SearchListing", {code, std::int32_t{otherRevenueListing}});
    cause.code.setRefusal(found || code.empty() ? "" : unknownCause);
    if (!found)
        return;
    const com::Object revenue = codeSearch.object("OtherRevenueRecord");
    cause.name.setText(revenue.text("OtherRevenue"));
    cause.code.setText(revenue.text("ResultCode"));
}

void bindCauses(FormContext& form) {
    for (const Cause& cause : causesOf(form.fields.consultation)) {
        takeBackWhen(cause.code, unknownCause, [cause] { return cause.code.text().empty(); });
        cause.button.onClick = [&form, cause] { lookUpCause(form, cause); };
        cause.code.onKeyPress = [&form, cause](ui::KeyPress& press) {
            if (press.code != ui::key::enter)
                return;
            lookUpCause(form, cause);
            form.window.setFocus(cause.name.text().empty() ? cause.code : cause.next);
        };
    }
}

} // namespace

bool Search_ChiefComplaint(FormContext& form, const std::string& code) {
    const ado::Recordset complaint = data::openPlain(
        form.session, data::Statement("PATIENT_DATA..sp_AOPD_SearchChiefComplaintID '").value(code).text("'"));
    if (complaint.EndOfFile())
        return false;
    form.record.chiefComplaintCode = data::textOf(complaint, "chiefcomplaintid");
    form.record.chiefComplaintText = data::textOf(complaint, "ChiefComplaint");
    return true;
}

void bindComplaintCodes(FormContext& form) {
    bindChiefComplaint(form);
    bindCauses(form);
}

} // namespace opd::registration
