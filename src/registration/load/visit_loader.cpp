#include "registration/load/visit_loader.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/procedures/checks.h"
#include "data/rows.h"
#include "registration/load/visit_fields.h"
#include "registration/record/codes.h"

#include <algorithm>

namespace opd::registration {

namespace {

using ado::Statement;

constexpr auto dynamic = ado::CursorType::Dynamic;
constexpr auto optimistic = ado::LockType::Optimistic;

/// The days for which a billed visit may still be edited: its own and the next.
constexpr long editableDays = 2;

/// Numbers of in-patient admissions are numeric, those of OPD visits hold a letter.
bool isNumeric(const std::string& number) {
    return !number.empty() && std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool passesSameDayCheck(FormContext& form) {
    const ado::Recordset found = data::openClient(form.session,
                                                  Statement("Patient_Data..sp_aopd_Check_if_admitted_today '")
                                                      .value(form.record.HospNum)
                                                      .text("', '")
                                                      .value(dateText(form.session.clock.now()))
                                                      .text("'"),
                                                  dynamic, optimistic);
    if (found.RecordCount() <= 0)
        return true;
    const std::string number = text::trimmed(data::textOf(found, "IdNum"));
    const std::string message = isNumeric(number) ? "Patient already was currently admitted as Adm. # "
                                                  : "Patient has a current OPD registration as Adm. # ";
    form.session.desktop.ask({.text = message + number, .caption = "Verification", .icon = ui::Icon::Exclamation});
    return false;
}

bool mayBeEdited(const FormContext& form, const ado::Recordset& visit) {
    const DateTime admitted = visit.Fields("AdmDate").asDate();
    const DateTime& today = form.session.globals.gServerDate;
    if (!admitted.isSet() || !today.isSet() || daysBetween(admitted, today) < editableDays)
        return true;
    return !data::IsVisitBilled(form.session, form.record.AdmissionNumber);
}

bool refuse(FormContext& form, const std::string& reason) {
    form.session.desktop.ask({.text = reason, .caption = "Notification"});
    return false;
}

bool loadVisit(FormContext& form) {
    Record& record = form.record;
    ado::Recordset visit = data::openClient(
        form.session, Statement("Patient_Data..sp_aopd_LoadOutPatient '").value(record.AdmissionNumber).text("'"),
        dynamic, optimistic);
    if (visit.RecordCount() == 0)
        return refuse(form, "Hosp. # (" + record.HospNum + ") was never an out-patient.");
    if (!mayBeEdited(form, visit))
        return refuse(form, "You are not allowed to edit previous OPD consultation.");
    showVisit(form, visit);
    visit.Close();

    LoadAllergies(form);
    for (auto& slot : record.Service)
        slot.empty();
    for (auto& slot : record.Allergy)
        slot.empty();
    record.AttendingDoctor[0].empty();
    record.AttendingDoctor[1].empty();
    return true;
}

} // namespace

void LoadAllergies(FormContext& form) {
    const ado::Recordset allergies = data::openClient(
        form.session, Statement("Patient_Data..sp_Aopd_LoadAllergies '").value(form.record.HospNum).text("'"), dynamic,
        optimistic);
    if (allergies.RecordCount() > 0)
        showAllergies(form, allergies);
}

bool SearchPatient(FormContext& form) {
    if (form.record.isNew())
        return passesSameDayCheck(form);
    return form.record.isEdit() ? loadVisit(form) : true;
}

void GetCancerPatient(FormContext& form) {
    const ado::Recordset visit = data::openClient(form.session,
                                                  Statement("Select * from Patient_Data..tbOutPatient where IDNUm = '")
                                                      .value(form.fields.header.txtOPDNum.text())
                                                      .text("'"),
                                                  dynamic, optimistic);
    if (visit.RecordCount() <= 0)
        return;
    PersonalTab& personal = form.fields.personal;
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

void loadOutProfile(FormContext& form) {
    const ado::Recordset profile = data::openClient(form.session,
                                                    Statement("Patient_Data..sp_AOPD_LoadOutProfile '")
                                                        .value(text::trimmed(form.fields.header.txtOPDNum.text()))
                                                        .text("'"),
                                                    dynamic, optimistic);
    if (profile.RecordCount() <= 0)
        return;
    const DateTime period = profile.Fields("LMP").asDate();
    form.fields.history.txtLMP.setText(period.isSet() ? dateText(period) : std::string{});
}

} // namespace opd::registration
