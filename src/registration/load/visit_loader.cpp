#include "registration/load/visit_loader.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/procedures/checks.h"
#include "data/rows.h"
#include "registration/load/visit_fields.h"
#include "registration/record/codes.h"
#include "registration/statements/queries.h"

#include <algorithm>

namespace opd::registration {

namespace {

constexpr auto dynamic = ado::CursorType::Dynamic;
constexpr auto optimistic = ado::LockType::Optimistic;

/// The days for which a billed visit may still be edited: its own and the next.
constexpr long editableDays = 2;

/// Numbers of in-patient admissions are numeric, those of OPD visits hold a letter.
bool isNumeric(const std::string& number) {
    return !number.empty() && std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool passesSameDayCheck(const Session& session, const std::string& hospNum) {
    const std::string registered = registeredToday(session, hospNum);
    if (registered.empty())
        return true;
    session.desktop.ask({.text = registered, .caption = "Verification", .icon = ui::Icon::Exclamation});
    return false;
}

bool mayBeEdited(const Session& session, const std::string& opdNumber, const ado::Recordset& visit) {
    const DateTime admitted = visit.Fields("AdmDate").asDate();
    const DateTime& today = session.globals.gServerDate;
    if (!admitted.isSet() || !today.isSet() || daysBetween(admitted, today) < editableDays)
        return true;
    return !data::IsVisitBilled(session, opdNumber);
}

bool refuse(const Session& session, const std::string& reason) {
    session.desktop.ask({.text = reason, .caption = "Notification"});
    return false;
}

bool loadVisit(const Session& session, Fields& fields, Record& record) {
    const ado::Recordset& visit = record.rows.ask(session, statements::visit(record.AdmissionNumber), optimistic);
    if (visit.RecordCount() == 0)
        return refuse(session, "Hosp. # (" + record.HospNum + ") was never an out-patient.");
    if (!mayBeEdited(session, record.AdmissionNumber, visit))
        return refuse(session, "You are not allowed to edit previous OPD consultation.");
    showVisit(session, fields, record, visit);

    LoadAllergies(session, fields.history, record);
    for (auto& slot : record.Service)
        slot.empty();
    for (auto& slot : record.Allergy)
        slot.empty();
    record.AttendingDoctor[0].empty();
    record.AttendingDoctor[1].empty();
    return true;
}

} // namespace

std::string registeredToday(const Session& session, const std::string& hospNum) {
    const ado::Recordset found = data::openClient(
        session, statements::registrationOf(hospNum, dateText(session.clock.now())), dynamic, optimistic);
    if (found.RecordCount() <= 0)
        return {};
    const std::string number = text::trimmed(data::textOf(found, "IdNum"));
    return (isNumeric(number) ? "Patient already was currently admitted as Adm. # "
                              : "Patient has a current OPD registration as Adm. # ") +
           number;
}

void LoadAllergies(const Session& session, HistoryTab& history, Record& record) {
    const ado::Recordset& allergies = record.rows.ask(session, statements::allergies(record.HospNum), optimistic);
    if (allergies.RecordCount() > 0)
        showAllergies(session, history, record, allergies);
}

bool SearchPatient(const Session& session, Fields& fields, Record& record) {
    return record.isNew() ? passesSameDayCheck(session, record.HospNum) : loadVisit(session, fields, record);
}

void GetCancerPatient(const Session& session, PersonalTab& personal, Record& record, const std::string& opdNumber) {
    const ado::Statement programmes = statements::programmes(opdNumber);
    const ado::Recordset visit = record.isNewVisit() ? data::openClient(session, programmes, dynamic, optimistic)
                                                     : record.rows.ask(session, programmes, optimistic);
    if (visit.RecordCount() <= 0)
        return;
    struct Treatment {
        const char* column;
        ui::CheckBox& box;
    };
    const Treatment treatments[] = {{"isRadioTherapy", personal.chkRTherapy},
                                    {"isHemodialysis", personal.chkHemo},
                                    {"isChemo", personal.chkChemo},
                                    {"isForDeposit", personal.chkforDeposit}};
    for (const Treatment& treatment : treatments)
        treatment.box.setChecked(visit.Fields(treatment.column).asFlag());
    if (!isInProgramme(personal))
        return;
    personal.dtpExpiration.setEnabled(true);
    if (const DateTime expires = visit.Fields("ExpirationDate").asDate(); expires.isSet())
        personal.dtpExpiration.setValue(expires.date());
}

void loadOutProfile(const Session& session, HistoryTab& history, LoadedRows& rows, const std::string& opdNumber) {
    const ado::Recordset& profile = rows.ask(session, statements::outProfile(opdNumber), optimistic);
    if (profile.RecordCount() <= 0)
        return;
    const DateTime period = profile.Fields("LMP").asDate();
    history.txtLMP.setText(period.isSet() ? dateText(period) : std::string{});
}

} // namespace opd::registration
