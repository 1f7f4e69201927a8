#include "registration/save/save_data.h"

#include "data/rows.h"
#include "registration/record/codes.h"
#include "registration/save/following_parts.h"
#include "registration/save/master_statements.h"
#include "registration/save/numbers.h"
#include "registration/save/refusals.h"
#include "registration/save/save_failures.h"
#include "registration/save/visit_statements.h"

namespace opd::registration {

namespace {

using ado::Statement;

void run(const FormContext& form, const Statement& statement) {
    data::execute(form.session, statement);
}

/// Numbers drawn for a save that then failed serve the next try: should the first have been written after all, the same
/// visit is written again and not a second one.
bool takeNumbers(FormContext& form) {
    Record& record = form.record;
    if (!record.isNewPatient())
        record.SaveHospNum = shownHospNum(form);
    else if (record.SaveHospNum.empty() && !drawHospNum(form))
        return false;
    if (record.isNewVisit())
        return !record.SaveIDNum.empty() || drawOpdNumber(form);
    record.SaveIDNum = text::trimmed(form.fields.header.txtOPDNum.text());
    if (!record.SaveIDNum.empty())
        record.SaveIDNum.pop_back();
    return true;
}

void rememberCounted(Record& record, const std::vector<std::string>& doctors) {
    record.countedDoctors.insert(record.countedDoctors.end(), doctors.begin(), doctors.end());
}

void commit(FormContext& form, ado::Transaction& transaction, const std::vector<std::string>& doctors) {
    try {
        transaction.commit();
    } catch (const ado::Error& failure) {
        if (!leavesDoubt(failure))
            throw;
        form.record.mayBeWritten = true;
        rememberCounted(form.record, doctors);
        throw PerhapsSaved(failure);
    }
    rememberCounted(form.record, doctors);
}

/// After a commit without an answer: looks whether the new visit is there, so that its doctors are counted once.
void settleDoubt(FormContext& form) {
    Record& record = form.record;
    if (!record.mayBeWritten || !record.isNewVisit())
        return;
    const ado::Recordset visit = data::openClient(
        form.session,
        Statement("Select IDNum from Patient_Data..tbOutPatient where IDNum = '").value(savedVisit(record)).text("'"));
    if (!visit.EndOfFile())
        return;
    record.mayBeWritten = false;
    record.countedDoctors.clear();
}

void writePatientAndVisit(FormContext& form, bool updateOnly) {
    const std::vector<std::string> doctors = updateOnly ? std::vector<std::string>{} : doctorsToCount(form);
    ado::Transaction transaction(form.session.connection());
    run(form, updateMaster(form));
    run(form, saveAllergies(form));
    if (form.session.globals.client().writesHistory)
        run(form, updateHistory(form));
    if (!updateOnly) {
        run(form, updateVisit(form));
        for (const std::string& doctor : doctors)
            run(form, countConsultation(doctor));
        for (const Statement& statement : updateAdditionalDoctors(form))
            run(form, statement);
    }
    commit(form, transaction, doctors);
}

/// From here on the form is the one of the written visit: what fails later can be tried again without a second visit.
void standForWrittenVisit(FormContext& form) {
    form.record.isWritten = true;
    form.record.mayBeWritten = false;
    form.record.HospNum = form.record.SaveHospNum;
    form.record.AdmissionNumber = savedVisit(form.record);
    form.fields.header.txtHospNum.setText(form.record.SaveHospNum);
    form.fields.header.txtOPDNum.setText(savedVisit(form.record));
}

/// A number that turned out to be another one's is not tried again. Where it may be this registration that was written
/// under it, it stays.
void forgetTakenNumbers(Record& record, const ado::Error& failure) {
    constexpr long keyIsTaken = 2627;
    if (failure.number() != keyIsTaken || record.mayBeWritten || record.isWritten)
        return;
    if (record.isNewPatient())
        record.SaveHospNum.clear();
    if (record.isNewVisit())
        record.SaveIDNum.clear();
}

/// Writes patient and visit under the numbers that were taken. Throws ado::Error that says what is stored.
void writeWhole(FormContext& form, bool updateOnly) {
    if (!updateOnly)
        settleDoubt(form);
    try {
        writePatientAndVisit(form, updateOnly);
    } catch (const ado::Error& failure) {
        forgetTakenNumbers(form.record, failure);
        throw;
    }
    standForWrittenVisit(form);
}

/// Everything up to the commit. False when it was refused, or no number could be drawn.
bool writeRegistration(FormContext& form, bool updateOnly) {
    if (!maySave(form, updateOnly))
        return false;
    form.record.lacksNumber = !takeNumbers(form);
    if (form.record.lacksNumber)
        return false;
    writeWhole(form, updateOnly);
    return true;
}

} // namespace

bool SaveData(FormContext& form, bool UpdateOnly) {
    const ui::BusyPointer busy(form.session.desktop);
    form.record.lacksNumber = false;
    computeKeptCodes(form);
    bool written = false;
    try {
        written = writeRegistration(form, UpdateOnly);
    } catch (const PerhapsSaved&) {
        throw;
    } catch (const std::exception& failure) {
        throw nothingSaved(form, failure);
    }
    if (!written)
        return form.record.lacksNumber;
    writeFollowingParts(form, UpdateOnly);
    return true;
}

} // namespace opd::registration
