#include "registration/coded/complaint_codes.h"

#include "base/text/text.h"
#include "data/rows.h"
#include "registration/rules/marks.h"
#include "registration/statements/queries.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

constexpr const char* unknownCause = "No cause of consultation has this code.";

} // namespace

ComplaintCodes::ComplaintCodes(Session& session, Fields& fields, const search::CodeListing& listing)
    : m_session(session), m_fields(fields), m_listing(listing) {
    ConsultationTab& tab = fields.consultation;
    bindChiefComplaint();
    bindCause(tab.cause1, tab.cause2.code);
    bindCause(tab.cause2, tab.cause3.code);
    bindCause(tab.cause3, tab.doctor1.code);
}

bool ComplaintCodes::Search_ChiefComplaint(const std::string& code) {
    const ado::Recordset complaint = data::openPlain(m_session, statements::chiefComplaint(code));
    if (complaint.EndOfFile())
        return false;
    m_found = {data::textOf(complaint, "chiefcomplaintid"), data::textOf(complaint, "ChiefComplaint")};
    return true;
}

void ComplaintCodes::bindChiefComplaint() {
    ui::CodedField& complaint = m_fields.consultation.complaint;
    complaint.lookup.onClick = [this] { lookUpComplaint(); };
    complaint.code.onKeyPress = [this, &complaint](ui::KeyPress& press) {
        if (press.code == ui::key::enter && !complaint.code.text().empty())
            lookUpComplaint();
    };
}

void ComplaintCodes::lookUpComplaint() {
    if (showExactComplaint())
        return;
    ui::CodedField& complaint = m_fields.consultation.complaint;
    search::frmSearchChiefComplaint& dialog = m_dialog ? *m_dialog : m_dialog.emplace(m_session);
    dialog.SearchCaption = "Chief Complaints";
    dialog.SearchMode = "CHIEFCOMPLAINT";
    dialog.SearchText = complaint.code.text();
    dialog.fields().txtSearchStr.setText(complaint.code.text());
    dialog.showModal();
    if (!dialog.Valid())
        return;
    complaint.show(dialog.ResultCode(), dialog.Result());
    takeOver(dialog.Result());
}

/// Shows the complaint of an exact code. False when there is none.
bool ComplaintCodes::showExactComplaint() {
    ui::CodedField& complaint = m_fields.consultation.complaint;
    if (!Search_ChiefComplaint(complaint.code.text()))
        return false;
    complaint.show(m_found.code, m_found.name);
    takeOver(m_found.name);
    return true;
}

/// The visit stores the memo "Chief Complaint" and not the code, so a complaint that was picked goes into the memo,
/// unless something else was written there.
void ComplaintCodes::takeOver(const std::string& complaint) {
    ui::TextBox& memo = m_fields.history.complaint;
    ui::Window& window = memo.window();
    if (!m_session.globals.client().storesComplaint()) {
        window.setStatus("The visits of this hospital store no chief complaint.");
    } else if (text::isBlank(memo.text()) || memo.text() == m_taken) {
        m_taken = complaint;
        memo.setText(complaint);
        window.setStatus("The complaint was taken over into \"Chief Complaint\" on \"Diagnosis & History\".");
    } else {
        window.setStatus("\"Chief Complaint\" on \"Diagnosis & History\" holds another text, which stays.");
    }
}

/// Enter leads on to the field `next`.
void ComplaintCodes::bindCause(ui::CodedField& cause, ui::TextBox& next) {
    takeBackWhen(cause.code, unknownCause, [&cause] { return cause.code.text().empty(); });
    cause.lookup.onClick = [this, &cause] { lookUpCause(cause); };
    cause.code.onKeyPress = [this, &cause, &next](ui::KeyPress& press) {
        if (press.code != ui::key::enter)
            return;
        lookUpCause(cause);
        next.window().setFocus(cause.name.text().empty() ? cause.code : next);
    };
}

void ComplaintCodes::lookUpCause(ui::CodedField& cause) {
    const std::string typed = cause.code.text();
    const std::optional<search::NamedCode> found = m_listing.causeOfConsultation({typed, {}});
    cause.code.setRefusal(found || typed.empty() ? "" : unknownCause);
    if (found)
        cause.show(found->code, found->name);
}

} // namespace opd::registration
